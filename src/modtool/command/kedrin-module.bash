# Completion of kedrin-module's command line for bash. Commands and options are asked of the program itself.

_kedrin_module() {
    local cur prev words cword
    _init_completion || return
    local program=${words[0]} command=${words[1]}

    if [[ $cword -eq 1 ]]; then
        COMPREPLY=($(compgen -W "$(_kedrin_module_words "$program" --help)" -- "$cur"))
        return
    fi
    case $prev in
        --from) COMPREPLY=($(compgen -W "beblia ces json opensong osis sqlite usfm usfx usx yaml zefania plain-lines verse-lines" -- "$cur")); return ;;
        --to) COMPREPLY=($(compgen -W "verse-lines osis" -- "$cur")); return ;;
        --book-order) COMPREPLY=($(compgen -W "source protestant orthodox" -- "$cur")); return ;;
        --titles) COMPREPLY=($(compgen -W "bg source" -- "$cur")); return ;;
        --encoding) COMPREPLY=($(compgen -W "UTF-8 UTF-16 windows-1251" -- "$cur")); return ;;
        --versification) COMPREPLY=($(compgen -W "$_kedrin_module_versifications" -- "$cur")); return ;;
        --format) COMPREPLY=($(compgen -W "text markdown html json" -- "$cur")); return ;;
        --color) COMPREPLY=($(compgen -W "auto always never" -- "$cur")); return ;;
        --only | --ignore) COMPREPLY=($(compgen -W "$("$program" check --list 2>/dev/null | cut -d ' ' -f 1)" -- "$cur")); return ;;
        --with) _kedrin_module_modules "$program"; return ;;
        --range) _kedrin_module_books "$program" "${words[2]}"; return ;;
        --all-sword | --repository) _filedir -d; return ;;
        --copyright) _filedir; return ;;
        --as | --book | --language | --title | --short | --abbr | --places | --width | --limit) return ;;
    esac
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(_kedrin_module_words "$program" "$command" --help)" -- "$cur"))
    elif [[ $command == build || $command == add || $command == export ]]; then
        _filedir
    elif [[ $command != get ]] && [[ $cword -eq 2 || $command == diff ]]; then
        _kedrin_module_modules "$program"
    elif [[ $cword -eq 3 && $command == show ]]; then
        _kedrin_module_books "$program" "${words[2]}"
    fi
}

# The systems that the SWORD library knows.
_kedrin_module_versifications="Calvin Catholic Catholic2 DarbyFr German KJV KJVA LXX Leningrad Luther MT NRSV NRSVA Orthodox
    Segond Synodal SynodalProt Vulg"

# _kedrin_module_offer: those lines of standard input that begin with what is typed, blanks in them quoted
_kedrin_module_offer() {
    local line
    while IFS= read -r line; do
        [[ $line == "${cur//\\/}"* ]] && COMPREPLY+=("${line// /\\ }")
    done
}

# _kedrin_module_modules PROGRAM: the names of the installed modules, and folders
_kedrin_module_modules() {
    _filedir -d
    _kedrin_module_offer < <("$1" list 2>/dev/null | sed -n 's/  .*//p')
}

# _kedrin_module_books PROGRAM MODULE: the abbreviations of its books
_kedrin_module_books() {
    _kedrin_module_offer < <("$1" info "$2" 2>/dev/null | awk -F '\t' 'NF == 5 && $2 != "" { print $2 }')
}

# _kedrin_module_words PROGRAM ARGUMENTS...: the words that the help explains: commands and options
_kedrin_module_words() {
    LC_ALL=C "$@" 2>/dev/null | sed -n '/^Positionals:/,/^$/d; s/^  -[a-z],/  /; s/^  *\(--[a-z-]*\|[a-z][a-z]*\)\( .*\)\{0,1\}$/\1/p'
}

complete -F _kedrin_module kedrin-module
