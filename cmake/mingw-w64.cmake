# Cross-builds for 64-bit Windows with Debian's g++-mingw-w64-x86-64-posix; the programs run on Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The -posix compilers bring std::thread and std::mutex.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# ZELORGAS_WINDOWS_QT: the folder with Qt and QCustomPlot that packaging/windows/build has made. Its
# tools that run while building are the host's.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZELORGAS_WINDOWS_QT)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${ZELORGAS_WINDOWS_QT})
if(ZELORGAS_WINDOWS_QT)
  set(CMAKE_PREFIX_PATH ${ZELORGAS_WINDOWS_QT})
  set(QT_HOST_PATH /usr)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# One file to hand on: no libstdc++ or winpthread beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

set(CMAKE_CROSSCOMPILING_EMULATOR wine)
