# Doubles round as they do on 64 bits, and hosts may call with a stack aligned to 4 bytes.
set(word i686)
set(word_flags "-msse2 -mfpmath=sse -mstackrealign")
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
