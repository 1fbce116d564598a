# 64-bit big-endian, for the order of bytes, with Debian's cross compiler: scripts/test s390x
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_LIBRARY_ARCHITECTURE s390x-linux-gnu)
set(architecture s390x)
set(triplet s390x-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
