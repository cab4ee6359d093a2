# Windows, 64 bit, from Debian: MinGW-w64 with POSIX threads, which std::thread and std::mutex need.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(mingw x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw}-windres)
set(CMAKE_AR ${mingw}-gcc-ar-posix)
set(CMAKE_RANLIB ${mingw}-gcc-ranlib-posix)

# Libraries and headers of Windows only; programs such as moc are Debian's own.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${mingw} ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
