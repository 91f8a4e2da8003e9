#!/usr/bin/env bash
# commands_test.sh SCRIPTS: the messages of ./run and ./test for each failing step, in both languages.
set -uo pipefail
scripts=$1
source "$(dirname "$0")/script_test.sh"
use_programs bash cat dirname env false grep id locale nproc readlink realpath
stand_in dpkg-query 'printf "installed %s\n" "$@"'
project=$work/project
mkdir -p "$project/build/release" "$work/there"
cp -r "$scripts/../run" "$scripts/../test" "$scripts" "$project"
ln -s "$work/bin/kedrin-module" "$project/build/release/kedrin-module"

# prepared: everything succeeds.
prepared() {
    stand_in cmake
    stand_in ctest
    stand_in kedrin-module
    : >"$project/build/release/build.ninja"
    mkdir -p "$project/build/dev"
    : >"$project/build/dev/build.ninja"
}

# comes_to STATUS ENGLISH BULGARIAN COMMAND: the status and standard error of the command, run in `there`.
comes_to() {
    run_script "cd there && $4" LANG=C.UTF-8
    expect "$4: status" "$1" "$status"
    expect "$4: errors" "$2" "$err"
    run_script "cd there && $4" LANG=bg_BG.UTF-8
    expect "$4: Bulgarian" "$3" "$err"
}

prepared
for command in 'run --other' 'run --screenshot' 'run --screenshot ""' 'run --screenshot a b' 'run ""'; do
    comes_to 2 'usage: ./run [--screenshot FILE.png]' 'употреба: ./run [--screenshot ФАЙЛ.png]' "../project/$command"
done
comes_to 2 'usage: ./test [dev|asan|asan-short [ARGUMENTS OF CTEST]]' 'употреба: ./test [dev|asan|asan-short [АРГУМЕНТИ НА CTEST]]' \
    '../project/test release'
for file in "$work/no/a.png" "$work"; do
    comes_to 1 "$file cannot be written; name another file for the picture." \
        "$file не може да се запише; посочете друг файл за снимката." "../project/run --screenshot '$file'"
done

comes_to 0 '' '' ../project/test
expect 'without configuring again' 'cmake --build --preset dev' "$(grep ^cmake <<<"$calls")"
comes_to 1 "Kedrin is built, but there is no display to open its window on (DISPLAY and WAYLAND_DISPLAY are not set).
Run it from a desktop session, or through ssh -X; './run --screenshot FILE.png' saves a picture without one." \
    "Kedrin е готов, но няма екран, на който да отвори прозореца си (DISPLAY и WAYLAND_DISPLAY не са зададени).
Стартирайте го от графична среда или през ssh -X; „./run --screenshot ФАЙЛ.png“ записва снимка и без екран." \
    ../project/run
expect 'without configuring again' 'cmake --build --preset release' "$(grep ^cmake <<<"$calls")"

stand_in kedrin-module 'exit 1'
run_script 'project/run'
expect 'a text that fails' \
    'Not every Bible text could be made a module (see above); the window shows the others.' "$(head -n 1 <<<"$err")"

stand_in ctest 'echo "2 tests failed"; exit 8'
comes_to 1 'Tests failed: those that ctest lists above. One alone: ./test dev -R NAME' \
    'Има неуспешни тестове: изброените от ctest по-горе. Един отделно: ./test dev -R ИМЕ' ../project/test

stand_in cmake 'exit 1'
for tree in 'run release' 'test dev'; do
    read -r command preset <<<"$tree"
    comes_to 1 "The build in build/$preset failed (see above). Remove the cause, or build/$preset if it is older than the sources, and try again." \
        "Сглобяването в build/$preset не успя (вж. по-горе). Отстранете причината, или изтрийте build/$preset, ако е остаряла, и опитайте отново." \
        "../project/$command"
    rm "$project/build/$preset/build.ninja"
    [ "$command" = run ] && options=' -DKEDRIN_WERROR=OFF' || options=
    comes_to 1 "CMake could not prepare the build in build/$preset (see above). If the project was moved or copied, remove build/$preset and try again." \
        "CMake не успя да подготви build/$preset (вж. по-горе). Ако проектът е преместен или копиран, изтрийте build/$preset и опитайте отново." \
        "../project/$command"
    expect "$command: configuring" "cmake --preset $preset$options" "$(grep ^cmake <<<"$calls")"
done
exit $((failures > 0))
