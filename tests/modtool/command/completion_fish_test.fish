#!/usr/bin/env fish
# Completion in fish: commands, options and their values, modules, books, checks.
#   completion_fish_test.fish KEDRIN-MODULE COMPLETION
set -gx PATH (path dirname $argv[1]) $PATH
source $argv[2]
set -g failures 0
set -l work (mktemp -d)
set -gx XDG_DATA_HOME $work/data
set -gx HOME $work
cd $work

# expect WANTED LINE: what is offered at the end of the line, without descriptions
function expect
    set -l got (complete -C $argv[2] | string replace -r '\t.*' '' | LC_ALL=C sort)
    if test "$got" != "$argv[1]"
        printf 'FAILED: %s\n  wanted: %s\n  got:    %s\n' $argv[2] $argv[1] "$got"
        set failures (math $failures + 1)
    end
end

printf 'Gen\t1\t1\ta\n1Sam\t1\t1\ta\n' >text.txt
kedrin-module add text.txt --as "my text" -q; and kedrin-module add text.txt --as mine -q; or set failures 1

expect "--help --version add build check diff export get info list remove search show words" "kedrin-module "
expect "search show" "kedrin-module s"
expect "mine my text" "kedrin-module show m"
expect "mine my text" "kedrin-module show mine Gen --with "
expect "1 Цар Бит" "kedrin-module show mine "
expect "1 Цар Бит" "kedrin-module search mine a --range "
expect "--color --count" "kedrin-module search mine a --co"
expect "html json markdown text" "kedrin-module show mine Gen --format "
expect "bg source" "kedrin-module build --titles "
expect "osis verse-lines" "kedrin-module export mine --to "
expect "text-blanks text-byte-98" "kedrin-module check --only text-b"
expect "structure-too-many-verses" "kedrin-module check --ignore structure-too"
expect "text.txt" "kedrin-module build te"

rm -r $work
test $failures -eq 0
