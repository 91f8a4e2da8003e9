#compdef kedrin-module
# Completion of kedrin-module's command line for zsh. Commands and options are asked of the program itself.

# _kedrin_module_words ARGUMENTS...: the words that the help explains, as name:description
_kedrin_module_words() {
    LC_ALL=C kedrin-module "$@" 2>/dev/null | sed -nE '/^Positionals:/,/^$/d
        s/^  -[a-z],/  /
        s/^ +(--[a-z-]+|[a-z]+)( [^ ][^ ]*)?( +(.*))?$/\1:\4/p'
}

# _kedrin_module_values COMMAND OPTION: the values of an option, which the help shows as a|b|c
_kedrin_module_values() {
    LC_ALL=C kedrin-module "$1" --help 2>/dev/null | sed -nE "s/^  $2 ([a-z0-9-]+(\\|[a-z0-9-]+)+)( .*)?\$/\\1/p" | tr '|' '\n'
}

_kedrin_module_names() {
    local -a names=(${(f)"$(kedrin-module list 2>/dev/null | sed 's/  .*//')"})
    compadd -a names
    _files -/
}

# _kedrin_module_books MODULE: the abbreviations of its books
_kedrin_module_books() {
    local -a books=(${(f)"$(kedrin-module info ${(Q)1} 2>/dev/null | awk -F '\t' 'NF == 5 && $2 != "" { print $2 }')"})
    compadd -a books
}

_kedrin-module() {
    local command=$words[2] previous=$words[CURRENT-1]
    local -a offered
    if ((CURRENT == 2)); then
        offered=(${(f)"$(_kedrin_module_words --help)"})
        _describe command offered
        return
    fi
    offered=(${(f)"$(_kedrin_module_values $command $previous)"})
    if [[ $previous == --* ]] && (($#offered)); then
        compadd -a offered
        return
    fi
    case $previous in
        --with) _kedrin_module_names; return ;;
        --range) _kedrin_module_books "$words[3]"; return ;;
        --only | --ignore)
            offered=(${(f)"$(kedrin-module check --list 2>/dev/null | cut -d ' ' -f 1)"})
            compadd -a offered
            return
            ;;
        --all-sword | --repository) _files -/; return ;;
        --copyright) _files; return ;;
        --as | --book | --language | --title | --short | --abbr | --versification | --places | --width | --limit | --encoding) return ;;
    esac
    if [[ $PREFIX == -* ]]; then
        offered=(${(f)"$(_kedrin_module_words $command --help)"})
        _describe option offered
    elif [[ $command == (build|add|export) ]]; then
        _files
    elif [[ $command != get ]] && { ((CURRENT == 3)) || [[ $command == diff ]] }; then
        _kedrin_module_names
    elif ((CURRENT == 4)) && [[ $command == show ]]; then
        _kedrin_module_books "$words[3]"
    fi
}

_kedrin-module "$@"
