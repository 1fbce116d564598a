#!/bin/sh
# Starts ip-up and ip-down as pppd does, in a name space with a copy of /etc, and looks at what the resolver
# gets. Skipped (77) without ppp or a name space, and where another program has the resolver.
set -eu
export LC_ALL=C
script=$(cd "$(dirname "$0")/../.." && pwd)/system/000velmor
space=$(readlink /proc/self/ns/mnt)
if [ $# = 0 ]; then
    [ -x /etc/ppp/ip-up.d/0000usepeerdns ] && [ ! -e /sbin/resolvconf ] && unshare -rm true || exit 77
    exec unshare -rm "$0" "$space"
fi
[ "$1" != "$space" ]  # or this machine's resolver would be changed
mount -t tmpfs run /run
mkdir -p /run/etc/ppp /run/bin /run/systemd/system
cp -r /etc/ppp/ip-up* /etc/ppp/ip-down* /run/etc/ppp
cp "$script" /run/etc/ppp/ip-up.d
printf '#!/bin/sh\n[ -e /run/resolved ]\n' >/run/bin/systemctl
printf '#!/bin/sh\necho "$@" >>/run/resolved\n' >/run/bin/resolvectl
# shellcheck disable=SC2016 # for the script
printf '#!/bin/sh\n[ -z "${USEPEERDNS:-}" ] || echo $DNS1 $DNS2 >>/run/resolvconf\n' \
    >/run/etc/ppp/ip-up.d/000resolvconf
chmod +x /run/bin/* /run/etc/ppp/ip-up.d/000resolvconf
mount --bind /run/bin /usr/local/sbin  # the first folder in which ip-up looks
mount --bind /run/etc /etc

# pppd SCRIPT VARIABLE...
pppd() {
    started=$1
    shift
    env -i "$@" "/etc/ppp/$started" ppp0 /dev/ttyS0 115200 10.0.0.2 10.0.0.1 "$parameter"
}

# row IPPARAM NAMED EXPECTED: the name servers that the network names, and those that the resolver gets:
# as a file, by resolvconf, and by systemd-resolved. ip-down puts the file back.
row() {
    parameter=$1
    got=
    for resolver in file resolved; do
        echo "nameserver 192.0.2.1" >/etc/resolv.conf
        rm -f /run/resolvconf /run/resolved /etc/ppp/resolv.conf
        [ $resolver = file ] || : >/run/resolved
        if [ "$2" ]; then
            echo "nameserver $2" >/etc/ppp/resolv.conf
            pppd ip-up USEPEERDNS=1 "DNS1=$2"
        else
            pppd ip-up
        fi
        got="$got$(sed 's/nameserver //' /etc/resolv.conf | xargs)|$(cat /run/resolvconf 2>&1 || true)|"
        pppd ip-down
        [ "$(cat /etc/resolv.conf)" = "nameserver 192.0.2.1" ] || { echo "$1: not put back"; exit 1; }
    done
    got=$got$(cat /run/resolved)
    [ "$got" = "$3" ] || { printf '%s\n' "$1, $2:" "$got" "$3"; exit 1; }
}
# both DNS: what is expected where the resolver gets these.
both() { echo "$1|$1|192.0.2.1|$1|dns ppp0 $1"; }
nobody="192.0.2.1|cat: /run/resolvconf: No such file or directory|"
row "velmor 10.1.1.1 10.2.2.2" "" "$(both "10.1.1.1 10.2.2.2")"
row "velmor 10.1.1.1" "" "$(both 10.1.1.1)"
row "velmor 10.1.1.1" 10.9.9.9 "$(both 10.9.9.9)"
row velmor 10.9.9.9 "$(both 10.9.9.9)"
for parameter in velmor "" "velmor2 10.1.1.1"; do
    row "$parameter" "" "$nobody$nobody"
done
row "velmor \$(touch /etc/x) 8.8.8.8;reboot * -n \`id\` 10.1.1.1" "" "$(both 10.1.1.1)"
[ ! -e /etc/x ]
