#!/bin/sh
# Compares what the built library exports and needs with what it should.
#   check_library.sh LIBRARY EXPORTS
set -eu
library=$1
exports=$2

nm -DC --defined-only "$library" | cut -d' ' -f3- | LC_ALL=C sort | diff -u "$exports" - || { echo "the exported symbols differ from $exports"; exit 1; }

needed=$(readelf -dW "$library" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | grep -v '^lib\(asan\|ubsan\)\.so')
for name in $needed; do
    case $name in
        libc.so.* | libm.so.* | libgcc_s.so.* | libstdc++.so.* | ld-linux*.so.*) ;;
        *) echo "needs $name"; exit 1 ;;
    esac
done
readelf -dW "$library" | grep -q 'SONAME.*\[libvelmor\.so\.1\]' || { echo "wrong SONAME"; exit 1; }
echo "exports, needed libraries and SONAME are as they should be"
