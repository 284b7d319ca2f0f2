# Completion of bash for kestrel: commands and options as the program itself lists them.
_kestrel() {
    local word=${COMP_WORDS[COMP_CWORD]} words
    if [ "$COMP_CWORD" -eq 1 ]; then
        words=$("${COMP_WORDS[0]}" --help 2>/dev/null | sed -nE 's/^  ([a-z]+)  .*/\1/p')
        mapfile -t COMPREPLY < <(compgen -W "$words --help --version" -- "$word")
    elif [[ $word == -* ]]; then
        words=$("${COMP_WORDS[0]}" "${COMP_WORDS[1]}" --help 2>/dev/null | sed -nE 's/^  (--?[a-z-]+).*/\1/p')
        mapfile -t COMPREPLY < <(compgen -W "$words --help" -- "$word")
    fi
}
complete -o default -F _kestrel kestrel
