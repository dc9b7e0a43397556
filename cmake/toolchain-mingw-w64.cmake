# Cross build for 64-bit Windows with Debian's mingw-w64 compilers (POSIX thread model):
#   cmake -S . -B build-windows -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-mingw-w64.cmake ...
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ORRINDEL_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${ORRINDEL_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ORRINDEL_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${ORRINDEL_MINGW_PREFIX}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${ORRINDEL_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The runtime libraries (libgcc, libstdc++, winpthread) linked in: one .exe that runs as it is,
# under Wine or on a machine without the compiler's DLLs.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
# Programs of the build (tests, the manual page writer) run under Wine.
find_program(ORRINDEL_WINE NAMES wine wine64)
if(ORRINDEL_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${ORRINDEL_WINE})
endif()
