# The same sources for 64-bit hosts.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(VINTREL_TRIPLE x86_64-w64-mingw32)
set(VINTREL_WIDL_FLAGS --win64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
