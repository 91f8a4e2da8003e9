#!/usr/bin/env bash
# commands_test.sh PROJECT BUILD: runs the commands that README.md, README.bg.md and the documents show, in a folder
# prepared for them, each in the state of the beginning. Each ends with status 0, or stands below with the reason why
# it is not run; of a synopsis, the command and its options exist.
set -euo pipefail
project=$1 build=$2

# not_run COMMAND: prints why it is not run; fails if it is to be run.
not_run() {
    case $1 in
        ./run* | ./test* | ./package*) echo 'builds the project, and installs packages' ;;
        'sudo apt '* | 'apt '*) echo 'installs packages' ;;
        kedrin | 'kedrin --'* | kedrin-add | build/release/kedrin-add) echo 'opens a window' ;;
        'kedrin-module get '*--repository\ https:*) echo 'uses the network' ;;
        *) return 1 ;;
    esac
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset LANGUAGE
export LC_ALL=C.UTF-8 HOME=$work/home XDG_DATA_HOME=$work/data PATH=$build:$PATH
own=$XDG_DATA_HOME/kedrin/modules/bibles
failures=0

# The texts and modules that the documents name.
prepare() {
    mkdir -p "$work/folder/build" "$work/home/.sword/InstallMgr"
    ln -s "$build" "$work/folder/build/release"
    cd "$work/folder"
    printf '[General]\n[Sources]\nHTTPSource=Example|example.org|/sword\n' >"$HOME/.sword/InstallMgr/InstallMgr.conf"
    verses >my.txt
    cp my.txt prevod.txt
    cp my.txt bg-1940.txt
    local name
    for name in bg ru my; do kedrin-module build my.txt "modules/bibles/$name" --title "$name" --quiet; done
    for name in prevod kjv; do kedrin-module add my.txt --as "$name" --title "$name" --quiet; done
    cp -R "$work/folder" "$work/folder.first"
    cp -R "$work/data" "$work/data.first"
}

verses() {
    printf 'Gen\t1\t%s\tНека бъде светлина, а не тъмнина.\n' 1 2 3 4 5
    printf 'Jonah\t%s\t1\tК Господу воззвал я в скорби моей.\n' 1 2
    printf 'John\t3\t%s\tКрай морето стояха рибари.\n' {1..18}
}

# As prepared; a text that a command adds is not there yet.
start_anew() {
    rm -rf "$work/folder" "$work/data"
    cp -R "$work/folder.first" "$work/folder"
    cp -R "$work/data.first" "$work/data"
    cd "$work/folder"
    case $1 in *' add prevod.txt '*) rm -r "$own/prevod" ;; esac
}

# commands FILE: the command lines of its code blocks, without a prompt and comments
commands() {
    # shellcheck disable=SC2016 # fences, not commands
    sed -nE '/^```/,/^```/p; /^    /p' "$1" | sed -E 's/^ *//; s/^\$ //; s/  +#.*//; s/ +$//' |
        grep -E '^((build/release/)?kedrin(-module|-add)?( |$)|\./[a-z]|sudo |apt )' || true
}

is_synopsis() { grep -qE '\[|\b(SOURCE|MODULE|MODULE-FOLDER|NAME|DIR|OTHER|REFERENCE)\b' <<<"$1"; }

# A synopsis names only options that the help of its command has.
check_synopsis() {
    local command help option
    read -r _ command _ <<<"$1"
    case $1 in
        kedrin-module*) help=$(kedrin-module help "$command") || return ;;
        *) return 0 ;;
    esac
    while read -r option; do
        grep -qE -- "$option( |,|$)" <<<"$help" || return
    done < <(grep -oE -- '--[a-z-]+' <<<"$1")
}

# fails FILE COMMAND [OUTPUT]
fails() {
    printf 'FAILED: %s: %s\n' "${1#"$project"/}" "$2"
    [ -z "${3-}" ] || printf '  %s\n' "$3"
    failures=$((failures + 1))
}

check_command() {
    local out
    if not_run "$2" >/dev/null; then
        return
    elif is_synopsis "$2"; then
        check_synopsis "$2" || fails "$1" "$2" 'no such command or option'
    else
        start_anew "$2"
        out=$(timeout 60 bash -c "$2" </dev/null 2>&1) || fails "$1" "$2" "$out"
        count=$((count + 1))
    fi
}

prepare
count=0
while read -r page; do
    while read -r line; do check_command "$page" "$line"; done < <(commands "$page")
done < <(find "$project"/README*.md "$project/doc" -name '*.md' | sort)
echo "$count commands were run"
[ "$count" -ge 20 ] || fails here 'so few commands'
exit $((failures > 0))
