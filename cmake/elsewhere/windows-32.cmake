# Windows on PCs of 32 bits, compiled with mingw-w64.
set(machine windows-32)
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
include("${CMAKE_CURRENT_LIST_DIR}/libraries.cmake")
