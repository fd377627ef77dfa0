# Completion of klxctl for bash. The tool itself knows its commands, options and paths.

# Puts a word into REPLY without the quoting that it was typed with. Nothing in it is carried out.
_klxctl_unquote() {
    local text=$1 quote='' character
    REPLY=
    while [[ -n $text ]]; do
        character=${text:0:1}
        text=${text:1}
        case $quote$character in
        \\)
            REPLY+=${text:0:1}
            text=${text:1}
            ;;
        \"\\)
            if [[ ${text:0:1} == [\\\"\$\`] ]]; then
                character=${text:0:1}
                text=${text:1}
            fi
            REPLY+=$character
            ;;
        \' | \") quote=$character ;;
        \'\' | \"\") quote= ;;
        *) REPLY+=$character ;;
        esac
    done
}

_klxctl() {
    local REPLY word candidate
    local -a words=()
    COMPREPLY=()
    for word in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
        _klxctl_unquote "$word"
        words+=("$REPLY")
    done
    while IFS= read -r candidate; do
        case $candidate in
        :file) compopt -o default ;;
        # Paths are quoted and shown as the names of files are.
        */*)
            compopt -o filenames
            COMPREPLY+=("$candidate")
            ;;
        *) COMPREPLY+=("$candidate") ;;
        esac
    done < <(klxctl complete -- "${words[@]}" 2>/dev/null)
}

complete -F _klxctl klxctl
