# What i686.cmake, armhf.cmake, arm64.cmake and s390x.cmake share. The target's libraries are
# Debian's, unpacked by scripts/lib.sh. Its programs run under qemu: a build machine's kernel may
# start none of them.
set(packages ${CMAKE_CURRENT_LIST_DIR}/../build/packages/${architecture})
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR ${emulator} -L ${packages})

set(CMAKE_FIND_ROOT_PATH ${packages})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
