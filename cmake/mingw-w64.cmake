# Toolchain for 64-bit Windows: cmake --toolchain cmake/mingw-w64.cmake -DGOODS_WINDOWS_PREFIX=FOLDER. The prefix holds
# SQLite and libsodium for Windows; scripts/build-windows makes it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(GOODS_WINDOWS_PREFIX "" CACHE PATH "Where the libraries for Windows are installed")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES GOODS_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${GOODS_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Libraries of headers alone (CLI11) are the same for every system, and come from this one.
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# pkg-config looks in the prefix and nowhere else.
set(ENV{PKG_CONFIG_LIBDIR} ${GOODS_WINDOWS_PREFIX}/lib/pkgconfig)
set(ENV{PKG_CONFIG_PATH} "")
