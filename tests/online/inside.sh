#!/bin/sh
# The inside of scripts/online. As the first process of user-mode Linux it runs every case; with the profile
# of a case it runs that. The environment has work, the folder with a folder for each case, velmor and
# catalogue. A new process takes 50 ms and more here, so nothing polls: the shell reads files itself, and
# waits at a pipe for events.
set -eu
: "${work:?}" "${velmor:?}" "${catalogue:?}"

# The machine. Its files are this machine's; of these only the work folder can be changed.
first_process() {
    mount -t proc proc /proc
    mount -t sysfs sys /sys
    mount -t tmpfs tmp /tmp
    mkdir -p /dev/pts
    mount -t devpts devpts /dev/pts
    mount -o remount,bind,ro /
    modules=/usr/lib/uml/modules/$(uname -r)/kernel
    # In this order: ipv6 needs crc-ccitt.
    for module in lib/crc-ccitt net/ipv6/ipv6 fs/overlayfs/overlay drivers/net/slip/slhc \
        drivers/net/ppp/ppp_generic drivers/net/ppp/ppp_async; do
        insmod "$modules/$module.ko"
    done
    # What a case adds to its copy of /etc: the scripts of pppd tell when the device is online.
    for hook in ip-up ip-down ipv6-up ipv6-down; do
        mkdir -p /tmp/etc/ppp/$hook.d
        printf '#!/bin/sh\necho %s >/run/events\n' "${hook#*-}" >/tmp/etc/ppp/$hook.d/zz-event
    done
    cp "${0%/tests/*}/system/000velmor" /tmp/etc/ppp/ip-up.d
    chmod +x /tmp/etc/ppp/*/zz-event
    # Two, so that one works while the other one waits. With more, a case may lack the time to answer.
    printf '%s\n' "$work"/*/profile |
        xargs -P 2 -I '{}' timeout 180 unshare --mount --net "$0" '{}' >"$work/cases.log" 2>&1 || true
}

# The command that brings the device online, from the phone to the ping, until it is told to end.
go_online() {
    # shellcheck disable=SC2086 # words
    exec "$velmor" connect "$catalogue" --device "$device" --state /run/state -v $options
}

# watch COMMAND...: passes on a signal, and tells the end as an event.
watch() {
    "$@" >command.log 2>&1 &
    trap 'kill $!; wait $!' TERM
    wait $! && status=0 || status=$?
    echo "status $status" >&3
}

# next: the next event, which is up, down or "status N".
next() {
    read -r event <&3
    echo "$event"
}
expect() { next && [ "$event" = "$1" ]; }
answered() { ping -c 1 -i 0.5 -w 20 "$peer"; }

# stays_online: whether the device gets an answer, and another one after the link was lost.
stays_online() {
    expect up && answered || return
    [ -z "$resolver" ] || grep "$resolver" /etc/resolv.conf || return
    [ $drops = 0 ] || { expect down && expect up && answered; }
}

# ends: whether the command ends as expected. Only a link that is lost is up before.
ends() {
    [ $drops = 0 ] || { expect up && expect down; } || return
    expect "$expected"
}

# The case in the current folder. In its own name spaces and with its own copy of /etc it sees no other.
one_case() {
    mount -t tmpfs run /run
    mkdir /run/etc /run/work /run/lock
    mount -t overlay etc -o lowerdir=/tmp/etc:/etc,upperdir=/run/etc,workdir=/run/work /etc
    mkfifo /run/events /run/device
    exec 3<>/run/events

    peer=10.64.64.64 options=--once resolver='' expected=online drops=0 secret=''
    while read -r line; do
        case $line in
            "# connect: "*) options="$options ${line#*: }" ;;
            "# pin: "*) echo "${line#*: }" >pin ;;
            "# resolver: "*) resolver=${line#*: } ;;
            "# exit: "*) expected="status ${line#*: }" ;;
            "drops = "*) drops=1 options=${options#--once} ;;
            "authentication = "*)
                # shellcheck disable=SC2086 # words
                set -- $line
                secret="$4 * $5 *"
                ;;
            "context-types = IPV6") peer=fe80::1%ppp0 ;;
        esac
    done <profile

    export secret
    unshare --mount --net "$0" network >/run/device 2>phone.log &
    phone=$!
    read -r device </run/device
    read -r began _ </proc/uptime
    watch go_online &
    watcher=$!
    if [ "$expected" = online ]; then stays_online; else ends; fi && echo "$expected" >result
    read -r now _ </proc/uptime
    echo $((${now%.*} - ${began%.*})) >seconds
    kill $watcher 2>/dev/null || true
    wait $watcher || true
    kill $phone
    wait $phone || true
}

# The phone and the network. The network's secrets are not the device's.
network() {
    mount -t tmpfs ppp /etc/ppp
    echo "$secret" >/etc/ppp/pap-secrets
    echo "$secret" >/etc/ppp/chap-secrets
    exec "$velmor" phone profile -v --network "pppd debug logfd 2"
}

if [ $$ = 1 ]; then
    mount --bind "$work" "$work"
    first_process >"$work/inside.log" 2>&1 </dev/null
    echo o >/proc/sysrq-trigger
    sleep 10
fi
umask 077
case $1 in
    network) network ;;
    *) cd "${1%/profile}" && one_case >case.log 2>&1 ;;
esac
