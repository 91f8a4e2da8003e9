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
        --from) COMPREPLY=($(compgen -W "beblia ces json opensong osis sqlite usfm usfx usx zefania plain-lines verse-lines" -- "$cur")); return ;;
        --to) COMPREPLY=($(compgen -W "verse-lines osis" -- "$cur")); return ;;
        --book-order) COMPREPLY=($(compgen -W "source protestant orthodox" -- "$cur")); return ;;
        --titles) COMPREPLY=($(compgen -W "bg source" -- "$cur")); return ;;
        --encoding) COMPREPLY=($(compgen -W "UTF-8 UTF-16 windows-1251" -- "$cur")); return ;;
        --all-sword | --with | --repository) _filedir -d; return ;;
        --copyright) _filedir; return ;;
        --as | --book | --language | --title | --short | --abbr | --versification | --places | --width) return ;;
    esac
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(_kedrin_module_words "$program" "$command" --help)" -- "$cur"))
    elif [[ $command == build || $command == add || $command == export ]]; then
        _filedir
    elif [[ $command != get ]] && [[ $cword -eq 2 || $command == diff ]]; then
        _filedir -d
    fi
}

# _kedrin_module_words PROGRAM ARGUMENTS...: the words that the help explains: commands and options
_kedrin_module_words() {
    LC_ALL=C "$@" 2>/dev/null | sed -n '/^Positionals:/,/^$/d; s/^  -[a-z],/  /; s/^  *\(--[a-z-]*\|[a-z][a-z]*\)\( .*\)\{0,1\}$/\1/p'
}

complete -F _kedrin_module kedrin-module
