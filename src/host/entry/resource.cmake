# The resources of the Windows module: what the host reads before it loads the effect, and the version that the system
# shows. The first is written by a program that the building machine runs.
enable_language(RC)
set(pipl_writer "${CMAKE_CURRENT_BINARY_DIR}/make_pipl${CMAKE_HOST_EXECUTABLE_SUFFIX}")
if(CMAKE_CROSSCOMPILING)
  find_program(QUILTOR_BUILD_CXX NAMES g++ c++ clang++ REQUIRED)
  add_custom_command(
    OUTPUT "${pipl_writer}"
    COMMAND "${QUILTOR_BUILD_CXX}" -std=c++20 -I "${PROJECT_SOURCE_DIR}" -I "${PROJECT_SOURCE_DIR}/src" -o
            "${pipl_writer}" "${CMAKE_CURRENT_SOURCE_DIR}/make_pipl.cpp"
    DEPENDS make_pipl.cpp effect_identity.h "${PROJECT_SOURCE_DIR}/hostapi/effect.h"
            "${PROJECT_SOURCE_DIR}/src/platform/file.h"
    VERBATIM)
else()
  add_executable(make_pipl make_pipl.cpp)
  target_link_libraries(make_pipl PRIVATE quiltor_language quiltor_warnings)
  set(pipl_writer make_pipl)
endif()
add_custom_command(OUTPUT pipl.bin COMMAND "${pipl_writer}" pipl.bin DEPENDS "${pipl_writer}" VERBATIM)
configure_file(module.rc.in module.rc @ONLY)
set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/module.rc"
                            PROPERTIES OBJECT_DEPENDS "${CMAKE_CURRENT_BINARY_DIR}/pipl.bin"
                                       INCLUDE_DIRECTORIES "${CMAKE_CURRENT_BINARY_DIR}")
target_sources(Quiltor PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/module.rc")
