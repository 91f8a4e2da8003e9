#!/usr/bin/env bash
# package_test.sh SCRIPTS: what ./package gives to dpkg-buildpackage, what it leaves, and the messages of ./package and
# ./test-package in both languages.
set -uo pipefail
scripts=$1
source "$(dirname "$0")/script_test.sh"
use_programs bash basename cat dirname env find git grep id locale ls mkdir mktemp mv readlink realpath rm rmdir sed sort tail tar touch tr
stand_in dpkg-query 'printf "installed %s\n" "$@"'
stand_in dpkg-parsechangelog 'echo 1000000000'
project=$work/project
mkdir -p "$project/debian" "$project/src" "$project/build" "$work/there"
cp -r "$scripts/../package" "$scripts/../test-package" "$scripts" "$project"
printf 'kedrin (0.4~rc1) bookworm; urgency=medium\n' >"$project/debian/changelog"
: >"$project/build/object"
echo text >"$project/src/файл с интервал"
chmod 600 "$project/src/файл с интервал"
chmod 700 "$project/src"

# comes_to STATUS ENGLISH BULGARIAN COMMAND: the status and standard error of the command, run in `there`.
comes_to() {
    run_script "cd there && $4" LANG=C.UTF-8
    expect "$4: status" "$1" "$status"
    expect "$4: errors" "$2" "$err"
    run_script "cd there && $4" LANG=bg_BG.UTF-8
    expect "$4: Bulgarian" "$3" "$err"
}

for command in "package ''" 'package a b'; do
    comes_to 2 'usage: ./package [FOLDER]' 'употреба: ./package [ПАПКА]' "../project/$command"
done
comes_to 2 'usage: ./test-package' 'употреба: ./test-package' '../project/test-package now'
: >"$work/file"
run_script 'cd there && ../project/package ../file/in' LANG=C.UTF-8
expect 'a file: status' 1 "$status"
expect 'a file' "$work/file/in cannot be written; name another folder." "$(tail -n 1 <<<"$err")"

# What is packed does not depend on the permissions and times of the copy, nor on the folder.
stand_in dpkg-buildpackage 'find . -printf "%p %m %T@\n" | sort >../listed; touch ../kedrin_0.4~rc1_amd64.deb'
run_script 'project/package' LANG=C.UTF-8
folder=$project/build/package
expect 'status' '0 ' "$status $err"
expect 'says' "Making the packages in $project/build/package (the log is build.log)
Made:
$project/build/package/kedrin_0.4~rc1_amd64.deb" "$(<"$work/out")"
expect 'how dpkg-buildpackage is called' 'dpkg-buildpackage --unsigned-source --unsigned-changes' \
    "$(grep ^dpkg-buildpackage <<<"$calls")"
expect 'a file' './src/файл с интервал 644 1000000000.0000000000' "$(grep файл "$folder/listed")"
expect 'a program' './package 755 1000000000.0000000000' "$(grep './package ' "$folder/listed")"
expect 'what is built is left out' '' "$(grep "^./build" "$folder/listed")"
expect 'the tree is removed' $'build.log\nkedrin_0.4~rc1_amd64.deb\nlisted' "$(ls "$folder")"
touch "$folder/kedrin-module_0.4~rc1_amd64.deb" "$folder/kedrin_0.3_amd64.deb"
run_script 'project/package' LANG=C.UTF-8
expect 'the packages of before are removed' $'build.log\nkedrin_0.3_amd64.deb\nkedrin_0.4~rc1_amd64.deb\nlisted' "$(ls "$folder")"

# In a copy that git knows: what is not ignored.
git -C "$project" init -q && printf '/build/\n*.swp\n' >"$project/.gitignore" && git -C "$project" add -A
rm "$project/test-package" && touch "$project/a.swp" "$project/added"
mkdir "$work/there/с интервал"
run_script 'cd there && ../project/package "с интервал"' LANG=C.UTF-8 HOME="$work"
expect 'git: status' '0 ' "$status $err"
listed=$(cut -d ' ' -f 1 "$work/there/с интервал/listed" | tr '\n' ' ')
expect 'git: a new file' './added' "$(grep -o './added' <<<"$listed")"
expect 'git: a deleted and an ignored one' '' "$(grep -oE 'test-package|a.swp' <<<"$listed")"

stand_in dpkg-buildpackage 'echo the cause >&2; exit 2'
comes_to 1 "the cause
The packages could not be made (see above and $work/there/out/build.log). The tree is $work/there/out/kedrin-0.4~rc1." "the cause
Пакетите не можаха да се направят (вж. по-горе и $work/there/out/build.log). Дървото е $work/there/out/kedrin-0.4~rc1." \
    '../project/package out'
exit $((failures > 0))
