# Cross-builds for 64-bit Windows with Debian's mingw-w64 (POSIX threads).
#
# The environment or cache variable VANTIRO_WINDOWS_SDK names a folder with qt/ (Qt 6 for Windows)
# and libvlc/ (headers and import library of libVLC 3).

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT VANTIRO_WINDOWS_SDK)
    set(VANTIRO_WINDOWS_SDK $ENV{VANTIRO_WINDOWS_SDK} CACHE PATH "Folder with Qt and libVLC for Windows")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VANTIRO_WINDOWS_SDK)
if(NOT EXISTS ${VANTIRO_WINDOWS_SDK}/qt)
    message(FATAL_ERROR "VANTIRO_WINDOWS_SDK must name a folder with qt/ and libvlc/")
endif()

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${VANTIRO_WINDOWS_SDK}/qt ${VANTIRO_WINDOWS_SDK}/libvlc)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs run under Wine, each in its own profile.
set(CMAKE_CROSSCOMPILING_EMULATOR
    ${CMAKE_CURRENT_LIST_DIR}/run-under-wine ${VANTIRO_WINDOWS_SDK} ${CMAKE_BINARY_DIR}/wine)

# Qt's tools (moc, rcc) are the host's.
set(QT_HOST_PATH /usr CACHE PATH "Qt of the building machine")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "Its CMake files")
