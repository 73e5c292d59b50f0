# Declares the project's modules and keeps them apart: a module includes its own files and those of the modules that it
# names after USES, its tests those after TEST_USES too, and links nothing else. The recorded edges are held against
# every #include by a test.
include(GoogleTest)

option(QUILTOR_WERROR "Treat warnings as errors" OFF)

if(WIN32)
  set(QUILTOR_OTHER_SYSTEM posix)
else()
  set(QUILTOR_OTHER_SYSTEM windows)
endif()

add_library(quiltor_warnings INTERFACE)
if(MSVC)
  target_compile_options(quiltor_warnings INTERFACE /W4)
else()
  target_compile_options(quiltor_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
endif()
if(QUILTOR_WERROR)
  target_compile_options(quiltor_warnings INTERFACE $<IF:$<BOOL:${MSVC}>,/WX,-Werror>)
endif()

# One result on every processor: a fused multiply-add rounds once where the formulas round twice.
add_library(quiltor_language INTERFACE)
target_compile_features(quiltor_language INTERFACE cxx_std_20)
if(MSVC)
  target_compile_options(quiltor_language INTERFACE /fp:precise /utf-8 /EHsc)
else()
  target_compile_options(quiltor_language INTERFACE -ffp-contract=off)
endif()
if(WIN32)
  target_compile_definitions(quiltor_language INTERFACE UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
else()
  target_compile_options(quiltor_language INTERFACE -fvisibility=hidden
                         $<$<COMPILE_LANGUAGE:CXX>:-fvisibility-inlines-hidden>)
endif()
target_include_directories(quiltor_language INTERFACE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/src")

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# quiltor_module(render/kernels USES base formats LIBRARIES PNG::PNG SOURCES a.cpp TESTS a_test.cpp)
#
# Makes the static library quiltor_render_kernels (an interface library without SOURCES) and, with TESTS, the program
# render_kernels_test, which links the module and nothing above it. TEST_LIBRARIES are linked to that program only.
# TEST_USES are modules that the tests use and the module itself does not. No other test runs beside those that the
# patterns after ALONE name.
# Sources and tests whose names end in _posix, _posix_test and so on are for that system only.
function(quiltor_module name)
  cmake_parse_arguments(arg "" "" "USES;LIBRARIES;SOURCES;TESTS;TEST_USES;TEST_LIBRARIES;ALONE" ${ARGN})
  list(FILTER arg_SOURCES EXCLUDE REGEX "_${QUILTOR_OTHER_SYSTEM}[.]cpp$")
  list(FILTER arg_TESTS EXCLUDE REGEX "_${QUILTOR_OTHER_SYSTEM}(_test)?[.]cpp$")
  string(REPLACE "/" "_" target "${name}")
  set(library "quiltor_${target}")
  if(arg_SOURCES)
    add_library(${library} STATIC ${arg_SOURCES})
    set(scope PUBLIC)
    target_link_libraries(${library} PRIVATE quiltor_warnings)
  else()
    add_library(${library} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_link_libraries(${library} ${scope} quiltor_language ${arg_LIBRARIES})
  foreach(used IN LISTS arg_USES)
    string(REPLACE "/" "_" used_target "${used}")
    target_link_libraries(${library} ${scope} quiltor_${used_target})
  endforeach()
  if(arg_TESTS)
    add_executable(${target}_test ${arg_TESTS})
    target_link_libraries(${target}_test PRIVATE ${library} quiltor_warnings ${arg_TEST_LIBRARIES} GTest::gmock
                                                 GTest::gtest_main)
    foreach(used IN LISTS arg_TEST_USES)
      string(REPLACE "/" "_" used_target "${used}")
      target_link_libraries(${target}_test PRIVATE quiltor_${used_target})
    endforeach()
    list(JOIN arg_ALONE ":" alone)
    set_property(GLOBAL APPEND PROPERTY QUILTOR_TEST_PROGRAMS "$<TARGET_FILE:${target}_test> ${alone}")
    # Another system's programs are run as wholes by windows/run_tests.sh.
    if(NOT CMAKE_CROSSCOMPILING)
      set(others "")
      if(arg_ALONE)
        gtest_discover_tests(${target}_test TEST_PREFIX "${name}: " DISCOVERY_TIMEOUT 60 TEST_FILTER "${alone}"
                             TEST_LIST ${target}_alone PROPERTIES TIMEOUT 300 RUN_SERIAL ON)
        set(others TEST_FILTER "-${alone}")
      endif()
      gtest_discover_tests(${target}_test TEST_PREFIX "${name}: " DISCOVERY_TIMEOUT 60 ${others}
                           PROPERTIES TIMEOUT 300)
    endif()
  endif()
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  list(JOIN arg_USES " " uses)
  list(JOIN arg_TEST_USES " " test_uses)
  set_property(GLOBAL APPEND PROPERTY QUILTOR_LAYERS "${folder} ${name} ${uses} | ${test_uses}")
endfunction()

# Writes down the programs that windows/run_tests.sh runs or compares, and which of their tests run alone.
function(quiltor_list_test_programs)
  get_property(programs GLOBAL PROPERTY QUILTOR_TEST_PROGRAMS)
  list(JOIN programs "\n" text)
  file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/test_programs.txt" CONTENT "${text}\n")
endfunction()

# Writes down the modules and their edges and adds the test that compares them with the sources.
function(quiltor_check_layers)
  get_property(layers GLOBAL PROPERTY QUILTOR_LAYERS)
  list(JOIN layers "\n" text)
  file(WRITE "${PROJECT_BINARY_DIR}/layers.txt" "${text}\n")
  add_test(NAME "layers: every include follows a declared edge"
           COMMAND "${CMAKE_COMMAND}" -DROOT=${PROJECT_SOURCE_DIR} -DLAYERS=${PROJECT_BINARY_DIR}/layers.txt -P
                   "${PROJECT_SOURCE_DIR}/cmake/check_layers.cmake")
endfunction()
