# What i686.cmake, armhf.cmake, arm64.cmake and s390x.cmake share. The target's libraries are
# Debian's, unpacked by scripts/lib.sh. What starts its programs is the presets' to say: building
# starts none.
set(packages ${CMAKE_CURRENT_LIST_DIR}/../build/packages/${architecture})
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)

set(CMAKE_FIND_ROOT_PATH ${packages})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# pkg-config would tell of the build machine's libraries.
set(ENV{PKG_CONFIG_LIBDIR} ${packages}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${packages})
