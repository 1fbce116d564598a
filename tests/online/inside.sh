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
        xargs -P 2 -I '{}' timeout $((180 + ${kills:-0} * 20)) unshare --mount --net "$0" '{}' >"$work/cases.log" 2>&1 || true
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
    [ $drops = 0 ] || { expect down && expect up && answered; } || return
    [ -z "$calls" ] || [ "$(grep -c '> ATD' phone.log)" = "$calls" ]
}

# ends: whether the command ends as expected. Only a link that is lost is up before.
ends() {
    [ $drops = 0 ] || { expect up && expect down; } || return
    expect "$expected"
}

# survives: connect is killed at random moments. Each time no process and no lock are left, the phone's
# context is as it was, and the state folder has no other file than its own.
survives() {
    echo 'AT+CGDCONT?' >ask
    kill=0
    while [ $kill -lt "$kills" ]; do
        kill=$((kill + 1))
        case $((kill % 3)) in 0) signal=INT ;; 1) signal=KILL ;; *) signal=TERM ;; esac
        moment=$(od -An -N1 -tu1 /dev/urandom)
        moment=$((moment / 25)).$(printf %03d $((moment % 25 * 40)))
        echo "kill $kill: $signal after $moment s"
        # A shell starts its jobs with SIGINT ignored: before connect has its handler it would be lost.
        env --default-signal=INT "$velmor" connect "$catalogue" --device "$device" --state /run/state --once \
            >>command.log 2>&1 &
        sleep "$moment"
        kill -$signal $! || true
        wait $! || true
        tries=0
        while pgrep --ns $$ --nslist net -f 'pppd|velmor dial'; do
            tries=$((tries + 1))
            [ $tries -lt 60 ] || return
            sleep 0.5
        done
        for lock in /run/lock/LCK..*; do
            if [ -e "$lock" ] && read -r holder <"$lock" && kill -0 "$holder"; then return 1; fi
        done
        "$velmor" dial ask <>"$device"
        [ "$(grep -o '< +CGDCONT.*' phone.log | tail -n 1)" = '< +CGDCONT: 1,"IP","before.example"' ] || return
        case $(ls -A /run/state 2>/dev/null) in '' | cards.json) ;; *) return 1 ;; esac
    done
}

# The case in the current folder. In its own name spaces and with its own copy of /etc it sees no other.
one_case() {
    mount -t tmpfs run /run
    mkdir /run/etc /run/work /run/lock
    mount -t overlay etc -o lowerdir=/tmp/etc:/etc,upperdir=/run/etc,workdir=/run/work /etc
    mkfifo /run/events /run/device
    exec 3<>/run/events

    peer=10.64.64.64 options=--once resolver='' expected=online drops=0 calls='' secret=''
    while read -r line; do
        case $line in
            "# connect: "*) options="$options ${line#*: }" ;;
            "# pin: "*) echo "${line#*: }" >pin ;;
            "# resolver: "*) resolver=${line#*: } ;;
            "# exit: "*) expected="status ${line#*: }" ;;
            "# calls: "*) calls=${line#*: } ;;
            "# catalogue: "*) catalogue=${catalogue%/*}/${line#*: } ;;
            "# kills: "*) expected="as it was" kills=${kills:-${line#*: }} ;;
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
    watcher=
    case $expected in
        "as it was") survives ;;
        *)
            watch go_online &
            watcher=$!
            if [ "$expected" = online ]; then stays_online; else ends; fi
            ;;
    esac && echo "$expected" >result
    read -r now _ </proc/uptime
    echo $((${now%.*} - ${began%.*})) >seconds
    # shellcheck disable=SC2086 # perhaps no word
    kill $watcher 2>/dev/null || true
    # shellcheck disable=SC2086
    [ -z "$watcher" ] || wait $watcher || true
    kill $phone
    wait $phone || true
}

# The phone and the network. The network's secrets are not the device's.
network() {
    mount -t tmpfs ppp /etc/ppp
    echo "$secret" >/etc/ppp/pap-secrets
    echo "$secret" >/etc/ppp/chap-secrets
    # A pseudo-terminal has no DTR to hang up with: a call in which nobody negotiates ends by itself.
    exec "$velmor" phone profile -v --network "pppd debug logfd 2 lcp-restart 1 lcp-max-configure 6"
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
