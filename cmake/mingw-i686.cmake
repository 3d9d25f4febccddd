# The product: 32-bit Windows, mingw-w64. The posix thread model is the one that GoogleTest builds with.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(VINTREL_TRIPLE i686-w64-mingw32)
set(VINTREL_WIDL_FLAGS --win32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
# Doubles in SSE registers: the same rounding as on the native build.
set(CMAKE_CXX_FLAGS_INIT "-march=pentium4 -mtune=generic -msse2 -mfpmath=sse")
