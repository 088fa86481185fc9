# Cross build for 64-bit Windows with Debian's MinGW-w64 (g++-mingw-w64-x86-64), the
# programs run by Wine (wine64) wherever CMake or CTest runs one:
#   cmake -S . -B build-windows -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake -DKRT_WITH_GUI=OFF
# `make test-windows` does this and more. The programs link libgcc, libstdc++ and
# winpthreads statically, so they need no MinGW DLL beside them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(KRT_MINGW_TRIPLET x86_64-w64-mingw32)
# The posix flavour: std::thread and std::mutex work with GCC 12 (the win32 one lacks them).
find_program(CMAKE_C_COMPILER NAMES ${KRT_MINGW_TRIPLET}-gcc-posix ${KRT_MINGW_TRIPLET}-gcc REQUIRED)
find_program(CMAKE_CXX_COMPILER NAMES ${KRT_MINGW_TRIPLET}-g++-posix ${KRT_MINGW_TRIPLET}-g++ REQUIRED)
find_program(CMAKE_RC_COMPILER NAMES ${KRT_MINGW_TRIPLET}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${KRT_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")

# Build steps that run a program of the project (the string table generator) and CTest
# run it through Wine.
if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
  find_program(KRT_WINE NAMES wine wine64)
  if(KRT_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${KRT_WINE})
  endif()
endif()
