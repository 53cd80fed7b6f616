# Cross-building for Windows x86-64 with Debian's mingw-w64 (the POSIX thread
# model, which std::thread and Qt need). ZORVANE_WINDOWS_PREFIX is the
# toolchain that scripts/windows-toolchain makes: OpenSSL, Qt, Boost's and
# {fmt}'s headers. Nothing is ever looked up in the build machine's /usr.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_SYSTEM_VERSION 10.0)

set(_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${_triple}-windres)

if(NOT ZORVANE_WINDOWS_PREFIX AND DEFINED ENV{ZORVANE_WINDOWS_PREFIX})
    set(ZORVANE_WINDOWS_PREFIX "$ENV{ZORVANE_WINDOWS_PREFIX}")
endif()
if(NOT ZORVANE_WINDOWS_PREFIX)
    set(ZORVANE_WINDOWS_PREFIX /opt/zorvane-windows)
endif()
# try_compile projects see the same prefix.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZORVANE_WINDOWS_PREFIX)

set(CMAKE_FIND_ROOT_PATH /usr/${_triple} "${ZORVANE_WINDOWS_PREFIX}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
