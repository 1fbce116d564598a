# SPDX-License-Identifier: MIT
# bash completion for velmor(1)

_velmor() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local -A options=(
        [check]="--json"
        [countries]="--json"
        [decode]="--output --force"
        [detect]="--device --phone --baud --timeout --probe --setting --like --verbose --format --json --output --force"
        [encode]="--output --force"
        [import]="--phones --output --iso --force"
        [phone]="--verbose"
        [phones]="--json"
        [setting]="--phone --setting --device --baud --format --json --output --force"
        [settings]="--json --country"
        [show]="--json --where"
    )
    local choices=""
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        choices="${!options[*]} --help --version"
    elif [ "$previous" = --format ]; then
        choices="text json ppp wvdial"
    elif [ "$previous" = --country ] || [ "$previous" = --where ]; then
        return
    elif [[ $word == -* ]]; then
        choices="${options[${COMP_WORDS[1]}]-} --help"
    elif [ "${COMP_WORDS[1]}" = show ] && [ "$COMP_CWORD" -eq 3 ]; then
        choices=$(velmor show "${COMP_WORDS[2]}" 2>/dev/null | awk 'NR > 1 { print $1 }')
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}
complete -o filenames -F _velmor velmor
