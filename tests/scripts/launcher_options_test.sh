#!/usr/bin/env bash
# The launcher's own options, and what it says and starts where there is no module.
#   launcher_options_test.sh LAUNCHER VERSION
set -uo pipefail
launcher=$1 version=$2
source "$(dirname "$0")/script_test.sh"
use_programs readlink rm ln mv strace
prefix="$work/usr с интервали"
guide="$prefix/share/doc/kedrin/guide"
mkdir -p "$prefix/bin" "$prefix/lib/kedrin" "$guide/bg" "$guide/en" "$work/var/modules/bibles"
ln -s "$work/var/modules" "$prefix/lib/kedrin/modules" # as packages have it
install -m 755 "$launcher" "$prefix/bin/kedrin"
printf '#!/bin/sh\necho "$0" "$@"\n' | tee "$prefix/lib/kedrin/kedrin" >"$work/bin/kedrin-add"
chmod +x "$prefix/lib/kedrin/kedrin" "$work/bin/kedrin-add"
ln -s "$prefix/bin/kedrin" "$work/kedrin"

# gives STATUS OUT ERR WHAT-TO-RUN [VARIABLE=VALUE...]
gives() {
    run_script "$4" HOME="$work/home" "${@:5}"
    expect "$4: status" "$1" "$status"
    expect "$4: output" "$2" "$out"
    expect "$4: errors" "$3" "$err"
}

gives 0 "Kedrin $version" '' './kedrin --version'
gives 0 "Kedrin $version, a Bible reader" '' './kedrin --help | { read -r line; echo "$line"; }' LANG=en_US.UTF-8
bulgarian="Kedrin $version, програма за четене на Библията"
gives 0 "$bulgarian" '' './kedrin -h | { read -r line; echo "$line"; }' LANG=bg_BG.UTF-8
gives 0 "$bulgarian" '' './kedrin -h | { read -r line; echo "$line"; }' LC_ALL=en_US.UTF-8 LANGUAGE=bg:en
gives 0 "Kedrin $version, a Bible reader" '' './kedrin -h | { read -r line; echo "$line"; }' LC_ALL=C LANGUAGE=bg LANG=bg_BG.UTF-8

# the guide
gives 1 '' 'The guide is not installed; its package is kedrin-doc.' './kedrin --guide'
gives 1 '' 'Ръководството не е инсталирано; пакетът му е kedrin-doc.' './kedrin --guide' LC_MESSAGES=bg_BG.UTF-8
touch "$guide/bg/index.html" "$guide/en/index.html"
gives 1 '' "Nothing that opens documents is installed (xdg-open). The guide is here:
$guide/en/index.html" './kedrin --guide'
gives 1 '' "Няма инсталирана програма, която отваря документи (xdg-open). Ръководството е тук:
$guide/bg/index.html" './kedrin --guide' LANG=bg_BG.UTF-8
stand_in xdg-open
gives 0 '' '' './kedrin --guide' LANG=bg_BG.UTF-8
expect 'opened' "xdg-open $guide/bg/index.html" "$calls"
gives 0 '' '' './kedrin --guide'
expect 'opened' "xdg-open $guide/en/index.html" "$calls"

# no module: kedrin-add, or without it the program, which says so by itself
english='Kedrin has no Bible text yet. Add one with kedrin-add, in a window, or here:
  kedrin-module add FILE   from a file or folder
  kedrin-module get        from a repository on the network'
gives 0 "$prefix/lib/kedrin/kedrin -style x" "$english" './kedrin -style x'
mv "$work/bin/kedrin-add" "$prefix/bin/kedrin-add"
gives 0 "$prefix/bin/kedrin-add --no-texts -style x" "$english" './kedrin -style x'
gives 0 "$prefix/bin/kedrin-add --no-texts" 'Kedrin още няма текст на Библията. Добавете текст с kedrin-add, в прозорец, или тук:
  kedrin-module add ФАЙЛ   от файл или папка
  kedrin-module get        от хранилище в мрежата' './kedrin' LANG=bg_BG.UTF-8
mkdir -p "$work/home/.local/share/kedrin/modules/bibles/.unfinished"
gives 0 "$prefix/bin/kedrin-add --no-texts" "$english" './kedrin'

# a module of the system, behind the link, or of the reader's own
mkdir "$work/var/modules/bibles/kjv"
touch "$work/var/modules/bibles/kjv/BibleTitles.txt"
own=$work/home/.local/share/kedrin
gives 0 "$own/kedrin" '' './kedrin'
expect 'link' "$prefix/lib/kedrin/modules/bibles/kjv" "$(readlink "$own/modules/bibles/kjv")"
rm -r "$work/var/modules/bibles/kjv"
gives 0 "$prefix/bin/kedrin-add --no-texts" "$english" './kedrin'
mkdir "$own/modules/bibles/my"
gives 0 "$own/kedrin --unknown" '' './kedrin --unknown'

# A start executes readlink and the program only; once there are modules of both kinds too.
executed() {
    run_script "strace -f -qq -e trace=execve -e signal=none -e status=successful -o calls $work/kedrin >/dev/null" HOME="$work/home"
    grep -o 'execve("[^"]*"' <<<"$calls" | sed 's/.*[/"]\(.*\)"/\1/' | tr '\n' ' '
}
mkdir "$work/var/modules/bibles/kjv"
touch "$work/var/modules/bibles/kjv/BibleTitles.txt"
gives 0 "$own/kedrin" '' './kedrin'
expect 'executed' 'kedrin readlink kedrin ' "$(executed)"
exit $failures
