# 32-bit Arm with hardware floating point, with Debian's cross compiler: scripts/test armhf
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
set(architecture armhf)
set(triplet arm-linux-gnueabihf)
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)  # notes on what gcc 7.1 changed
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
