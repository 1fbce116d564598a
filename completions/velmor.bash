# SPDX-License-Identifier: MIT
# bash completion for velmor(1)

_velmor() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local -A options=(
        [check]="--json"
        [countries]="--json"
        [decode]="--output --force"
        [encode]="--output --force"
        [import]="--phones --output --iso --force"
        [phones]="--json"
        [settings]="--json --country"
        [show]="--json --where"
    )
    local choices=""
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        choices="${!options[*]} --help --version"
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
