# Cross-builds for 64-bit Windows with Debian's mingw-w64.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triple x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)  # for the test framework
set(CMAKE_RC_COMPILER ${triple}-windres)
set(KESTREL_WIDL ${triple}-widl)
set(KESTREL_OBJDUMP ${triple}-objdump)
# A buffer that overflows ends the program before it can be made to do anything else.
set(CMAKE_CXX_FLAGS_INIT "-fstack-protector-strong")
set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
