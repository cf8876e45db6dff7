# Completion of zynvelora for bash: sub-commands, their options, operations, and files.
# shellcheck shell=bash disable=SC2207

_zynvelora() {
    local word="${COMP_WORDS[COMP_CWORD]}" command="${COMP_WORDS[1]-}" words=''
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        words="$(zynvelora --help 2>/dev/null | sed -n '/^Subcommands:/,$ s/^  \([a-z][a-z0-9-]*\) .*/\1/p')"
    elif [[ $word == -* ]]; then
        words="$(zynvelora "$command" --help 2>/dev/null | grep -o -- '--[a-z][a-z-]*' | sort -u)"
    elif [[ $command == call && $COMP_CWORD -eq 2 ]]; then
        words="$(zynvelora call --list 2>/dev/null | sed 's/(.*//')"
    else
        compopt -o default
        return
    fi
    COMPREPLY=($(compgen -W "$words" -- "$word"))
}
complete -F _zynvelora zynvelora
