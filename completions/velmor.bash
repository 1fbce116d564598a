# SPDX-License-Identifier: MIT
# bash completion for velmor(1)

_velmor() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local -A options=(
        [check]="--json"
        [countries]="--columns --json"
        [decode]="--output --force"
        [detect]="--device --search --phone --baud --timeout --probe --record --setting --apn --contract --like --pin-file --verbose --format --json --output --force"
        [devices]="--search --baud --json"
        [diff]="--json"
        [encode]="--output --force"
        [import]="--android --phones --previous --output --iso --force"
        [phone]="--verbose"
        [phones]="--columns --json"
        [setting]="--phone --setting --device --baud --format --json --output --force"
        [settings]="--columns --json --country"
        [show]="--columns --json --where"
        [trace]="--profile --detection --force --json"
    )
    local choices="" arguments=() i
    COMPREPLY=()
    # bash takes the = of --format=json for a word.
    if [ "$word" = = ]; then
        word=
    elif [ "$previous" = = ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    # The arguments before this word, without options and their values.
    for ((i = 2; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
            --where | --columns)
                [ "${COMP_WORDS[i + 1]}" = = ] && ((++i))
                ((++i))
                # COLUMN=VALUE has three words.
                [ "${COMP_WORDS[i + 1]-}" = = ] && ((i += 2))
                ;;
            -*) ;;
            *) arguments+=("${COMP_WORDS[i]}") ;;
        esac
    done
    if [ "$COMP_CWORD" -eq 1 ]; then
        choices="${!options[*]} --help --version"
    elif [ "$previous" = --format ]; then
        choices="text json ppp wvdial networkmanager"
    elif [ "$previous" = --contract ]; then
        choices="prepaid postpaid"
    elif [[ $previous == --@(country|where|search|columns) ]]; then
        return
    elif [[ $word == -* ]]; then
        choices="${options[${COMP_WORDS[1]}]-} --help"
    elif [ "${COMP_WORDS[1]}" = show ] && [ "${#arguments[@]}" -eq 1 ]; then
        choices=$(velmor show "${arguments[0]}" 2>/dev/null | awk 'NR > 1 { print $1 }')
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}
complete -o filenames -F _velmor velmor
