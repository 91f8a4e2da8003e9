#!/usr/bin/env zsh
# Completion in zsh: what it offers to the shell's own functions, which are replaced here.
#   completion_zsh_test.zsh KEDRIN-MODULE COMPLETION
PATH=${1:h}:$PATH
completion=${2:a}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
failures=0

compadd() { print -rl -- ${(P)2} }                # -a ARRAY
_describe() { print -rl -- ${${(P)2}%%:*} }      # WHAT ARRAY, of name:description
_files() { print -r -- files $* }

# expect WANTED WORDS...: what is offered for the last word, sorted
expect() {
    local wanted=$1 got
    shift
    words=("$@") CURRENT=$# PREFIX=${@[-1]}
    got=$(source $completion | sed '/^$/d' | LC_ALL=C sort | tr '\n' ' ')
    [[ $got == $wanted ]] && return
    print -r -- "FAILED: $*
  wanted: $wanted
  got:    $got"
    ((++failures))
}

export XDG_DATA_HOME=$work/data
printf 'Gen\t1\t1\ta\n1Sam\t1\t1\ta\n' >text.txt
kedrin-module add text.txt --as "my text" -q && kedrin-module add text.txt --as mine -q || failures=1

expect "--help --version add build check diff export get info list remove search show words " kedrin-module ""
expect "files -/ mine my text " kedrin-module show ""
expect "files -/ mine my text " kedrin-module show mine Gen --with ""
expect "1 Цар Бит " kedrin-module show "my\\ text" ""
expect "1 Цар Бит " kedrin-module search mine a --range ""
expect "--counts --help " kedrin-module words -
expect "html json markdown text " kedrin-module show mine Gen --format ""
expect "bg source " kedrin-module build --titles ""
expect "files " kedrin-module build ""
expect "files -/ " kedrin-module build --all-sword ""
expect "" kedrin-module build a b --title ""
[[ $(kedrin-module check --list | wc -l) -gt 50 ]] && expect "$(kedrin-module check --list | sed 's/ .*//' | LC_ALL=C sort | tr '\n' ' ')" kedrin-module check --only ""
((failures == 0))
