# Builds for 64-bit Windows on Debian, with mingw-w64 in its "posix" form, which has the threads and
# mutexes of the standard library. What is linked runs alone: no library of the compiler's goes along.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(mingw x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw}-windres)

# Qt for Windows is wherever KORVEL_WINDOWS_QT says; without it the window is left out.
set(KORVEL_WINDOWS_QT "$ENV{KORVEL_WINDOWS_QT}" CACHE PATH "Where a Qt for mingw-w64 is installed")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KORVEL_WINDOWS_QT)
set(CMAKE_FIND_ROOT_PATH /usr/${mingw} ${KORVEL_WINDOWS_QT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ZLIB_LIBRARY /usr/${mingw}/lib/libz.a CACHE FILEPATH "zlib, without its DLL")
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)

# Libraries of sources and headers alone are the host's: see the files of these names here.
foreach(package CLI11 GTest nlohmann_json)
  set(${package}_DIR ${CMAKE_CURRENT_LIST_DIR})
endforeach()

# Tests, and what is run while the project is built.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/under-wine)
