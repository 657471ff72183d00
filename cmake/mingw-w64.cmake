# For Windows from Debian: the cross compiler of g++-mingw-w64-x86-64-posix, and wine64 to start what it made.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
# The variant with POSIX threads: the other one has no std::thread and std::mutex.
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# One file to copy: no runtime libraries of the compiler beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
find_program(WINE wine64 PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${WINE})
endif()
