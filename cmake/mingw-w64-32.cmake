# Cross build for 32-bit Windows. Numbers are computed as on 64 bits, not with the wider registers of
# the old unit; the system calls back with a stack that is aligned to 4 bytes only.
set(mingw i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_CXX_FLAGS_INIT ${CMAKE_C_FLAGS_INIT})
