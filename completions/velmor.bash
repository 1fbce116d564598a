# SPDX-License-Identifier: MIT
# bash completion for velmor(1). The command's help gives subcommands, options and their values.

_velmor() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} subcommand=
    local choices="" arguments=() help i
    COMPREPLY=()
    [ "$COMP_CWORD" -eq 1 ] || subcommand=${COMP_WORDS[1]}
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
    # shellcheck disable=SC2086 # no word for no subcommand
    help=$(velmor $subcommand --help 2>/dev/null)
    case $previous in
        --format | --contract)
            choices=$(sed -n "s/^ *$previous [A-Z]*:{\([^}]*\)}.*/\1/p" <<<"$help" | tr , ' ')
            ;;
        --country | --number | --version | --where | --search | --columns) return ;;
        *)
            if [ -z "$subcommand" ] || [[ $word == -* ]]; then
                choices=$(sed -nE 's/^ +(-.,)?(--[a-z-]+).*/\2/p; /^Subcommands:/,$s/^  ([a-z]+) .*/\1/p' <<<"$help")
            elif [ "$subcommand" = show ] && [ "${#arguments[@]}" -eq 1 ]; then
                choices=$(velmor show "${arguments[0]}" 2>/dev/null | awk 'NR > 1 { print $1 }')
            else
                mapfile -t COMPREPLY < <(compgen -f -- "$word")
                return
            fi
            ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}
complete -o filenames -F _velmor velmor
