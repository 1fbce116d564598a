#!/bin/sh
# Looks at the built library from outside: what it exports and needs, and how it is hardened.
#   check_library.sh LIBRARY EXPORTS [unfortified] [sanitized]
# The last words name how it was built, where that leaves checks out.
set -eu
library=$1 exports=$2 bad=0
shift 2
say() { echo "$*"; bad=1; }
built() { case " $built " in *" $1 "*) ;; *) return 1 ;; esac; }
built=$*
soname=$(basename "$library" | sed 's/\(\.so\.[0-9]*\).*/\1/')

nm -DC --defined-only "$library" | cut -d' ' -f3- | LC_ALL=C sort | diff -u "$exports" - ||
    say "the exported symbols differ from $exports"

dynamic=$(readelf -dW "$library")
segments=$(readelf -lW "$library")
imports=$(nm -D --undefined-only "$library" | sed 's/^ *//')
dynamic() { echo "$dynamic" | grep -Eq "$1"; }

# The dynamic linker is the C library's own: on Arm it has the guard of the stack protector.
for name in $(echo "$dynamic" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p'); do
    case $name in
        libc.so.* | ld-linux*.so.* | ld64.so.*) ;;
        libm.so.* | libgcc_s.so.* | libstdc++.so.*) [ "$soname" = libvelmor.so.1 ] || say "needs $name" ;;
        libasan.so.* | libubsan.so.*) built sanitized || say "needs $name" ;;
        *) say "needs $name" ;;
    esac
done
dynamic "\(SONAME\).*\[$soname\]" || say "wrong SONAME"
dynamic '\(FLAGS\).* BIND_NOW|\(FLAGS_1\).* NOW' || say "binds its imports late"
! dynamic 'TEXTREL' || say "has text relocations"
echo "$segments" | grep -q ' GNU_RELRO ' || say "no part is read-only after relocation"
echo "$segments" | grep -q ' GNU_STACK .* RW ' || say "asks for an executable stack"
! echo "$segments" | grep -q ' LOAD .* RWE ' || say "has a segment to write and to execute"
# libvelmor-line has no array on the stack.
echo "$imports" | grep -q '^U __stack_chk_fail' || [ "$soname" = libvelmor-line.so.1 ] || say "is built without stack protector"

# The compiler's own start. Where the C++ runtime is shared, what prepares the loading thread too. On
# 64-bit Arm the linked-in runtime asks for the processor's atomic instructions.
# shellcheck disable=SC2046 # two words
set -- $(readelf -SW "$library" | sed -n 's/.* \.init_array .* \([0-9a-f]\{6,\}\) \([0-9a-f]\{2\}\)  *WA .*/\1 \2/p')
constructors=$((0x$1 / 0x$2))
most=1
case $(readelf -hW "$library") in *AArch64*) most=2 ;; esac
! dynamic '\(NEEDED\).*libstdc\+\+' || most=2
[ "$constructors" -le "$most" ] || built sanitized || say "runs $constructors constructors at load"
! echo "$imports" | grep -q '__tls_get_addr' || built sanitized ||
    say "has thread-local data that is allocated at its first use"
built unfortified || ! echo "$imports" | grep -E '^U v?(f|s|sn|d)?printf(@|$)' ||
    say "is built without _FORTIFY_SOURCE"
# What a needed library has bears its version.
built sanitized || ! echo "$imports" | grep -E '^U [^@]*$' || say "imports what nothing needed has"
[ "$bad" = 0 ] && echo "the library is as it should be"
exit "$bad"
