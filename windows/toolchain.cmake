# Builds for 64-bit Windows with clang, the MinGW-w64 headers and libraries, and GCC's standard library.
#
# Deliberate: clang, not the g++ of that target. 64-bit Windows aligns the stack to 16 bytes and AVX vectors want 32:
# clang aligns the stack itself, which GCC cannot do on this target, so that its code depends on every move being an
# unaligned one (docs/decisions.md). Clang also takes a third of the time for the kernels.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(triple x86_64-w64-mingw32)
foreach(language C CXX RC)
  set(CMAKE_${language}_COMPILER_TARGET ${triple})
endforeach()
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_RC_COMPILER ${triple}-windres)
set(CMAKE_AR llvm-ar)
set(CMAKE_RANLIB llvm-ranlib)

# The posix flavour of the compiler has std::thread. Clang does not know where Debian keeps it.
execute_process(COMMAND ${triple}-g++-posix -print-file-name=libstdc++.a OUTPUT_VARIABLE standard_library
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET standard_library PARENT_PATH gcc)
# The library was built with emulated thread-local variables, and shares some with those who use it. The last folder
# that the compiler searches by itself has the headers of the system that builds. No path of this folder in the files.
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH project)
set(flags "-femulated-tls -nostdlibinc -idirafter /usr/${triple}/include -ffile-prefix-map=${project}=.")
set(CMAKE_C_FLAGS_INIT "${flags}")
set(CMAKE_CXX_FLAGS_INIT "${flags} -Wno-unused-command-line-argument -nostdinc++ -isystem ${gcc}/include/c++ -isystem ${gcc}/include/c++/${triple}")
# No time in the files: the same sources give the same bytes.
set(link_flags "-fuse-ld=lld -B${gcc} -L${gcc} -static -Wl,--no-insert-timestamp -Wl,-s")
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "${link_flags}")
endforeach()
# What CMake names for this target, and the library whose threads the standard library's are.
set(CMAKE_CXX_STANDARD_LIBRARIES "-lpthread -lkernel32 -luser32 -lgdi32 -lwinspool -lshell32 -lole32 -loleaut32 -luuid -lcomdlg32 -ladvapi32" CACHE STRING "")

# Everything that is linked comes from build_dependencies.sh, and nothing from this system.
set(QUILTOR_DEPENDENCIES "${CMAKE_CURRENT_LIST_DIR}/../build/windows-dependencies/installed" CACHE PATH "")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUILTOR_DEPENDENCIES)
set(CMAKE_FIND_ROOT_PATH "${QUILTOR_DEPENDENCIES}" /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(kind LIBRARY INCLUDE PACKAGE)
  set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(ENV{PKG_CONFIG_LIBDIR} "${QUILTOR_DEPENDENCIES}/lib/pkgconfig")
set(ZLIB_USE_STATIC_LIBS ON)
set(PKG_CONFIG_ARGN --static)
