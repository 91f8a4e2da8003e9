#!/usr/bin/env bash
# The language of messages follows the user's locale, installed or not; that of machine-readable output does
# not.
#   language_test.sh KEDRIN-MODULE
set -uo pipefail
tool=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset LC_ALL LC_MESSAGES LANG LANGUAGE
export XDG_DATA_HOME=$work/data
failures=0

# expect WHAT WANTED GOT
expect() {
    [ "$2" = "$3" ] && return
    printf 'FAILED: %s\n  wanted: %s\n  got:    %s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}

printf 'Gen\t1\t1\tВ начало\nGen\t1\t3\tИ рече\n' >"$work/a.txt"
missing=(build "$work/missing" "$work/m/a")
english="kedrin-module: $work/missing: cannot be opened"
bulgarian="kedrin-module: $work/missing: не може да се отвори"

expect "no locale" "$english" "$("$tool" "${missing[@]}" 2>&1)"
expect "LANG" "$bulgarian" "$(env LANG=bg_BG.UTF-8 "$tool" "${missing[@]}" 2>&1)"
expect "LANG without country" "$bulgarian" "$(env LANG=bg "$tool" "${missing[@]}" 2>&1)"
expect "LC_MESSAGES before LANG" "$bulgarian" "$(env LC_MESSAGES=bg_BG.UTF-8 LANG=en_US.UTF-8 "$tool" "${missing[@]}" 2>&1)"
expect "LC_ALL before LC_MESSAGES" "$english" "$(env LC_ALL=en_US.UTF-8 LC_MESSAGES=bg_BG.UTF-8 "$tool" "${missing[@]}" 2>&1)"
expect "LANGUAGE before all" "$bulgarian" "$(env LANGUAGE=bg LC_ALL=en_US.UTF-8 "$tool" "${missing[@]}" 2>&1)"
expect "LANGUAGE that is empty" "$bulgarian" "$(env LANGUAGE= LANG=bg_BG.UTF-8 "$tool" "${missing[@]}" 2>&1)"
expect "LANGUAGE in the C locale" "$english" "$(env LANGUAGE=bg LC_ALL=C "$tool" "${missing[@]}" 2>&1)"
expect "a language without a catalogue" "$english" "$(env LANG=de_DE.UTF-8 "$tool" "${missing[@]}" 2>&1)"
expect "a locale that is a path" "$english" "$(env LANG=../../etc "$tool" "${missing[@]}" 2>&1)"

export LANG=bg_BG.UTF-8
expect "report" "модул         $work/m/a
заглавие      a
съдържа       1 книга, 1 глава, 3 стиха
думи          4 различни от общо 4
номерация     KJV
              3 от 3 стиха се съпоставят вярно в двете посоки (3 без нито един запис)
без текст     1 стих вътре в глава, първа поява: Gen 1:2" \
    "$("$tool" build "$work/a.txt" "$work/m/a" --versification KJV 2>&1)"
printf '\\id GEN\n\\ip Увод\n\\c 1\n\\v 1 В начало\n' >"$work/a.usfm"
expect "place in the source" "изпуснати     1 текст извън стиховете, първа поява: ред 2" \
    "$("$tool" build "$work/a.usfm" "$work/m/b" --versification KJV 2>&1 | tail -1)"
expect "check" "$work/m/a: изправен, 1 бележка; 1 книга, 3 стиха (празни: 1), 3 се съпоставят в двете посоки, 4 думи
  бележка info-copyright (1): Никъде не пише кой е направил текста и как може да се използва. Добавете авторските права след третия ред.
    _Info_.txt" "$("$tool" check "$work/m/a" 2>&1)"
expect "the other program" "kedrin-module: „Йонна“ не е книга от модула" "$("$tool" show "$work/m/a" Йонна 2>&1)"
expect "counts" "kedrin-module: в Бит има 1 глава; глава 9 няма" "$("$tool" show "$work/m/a" Бит 9:1 2>&1)"
expect "usage" "kedrin-module: --width: стойността 3 не е между 20 и 1000
kedrin-module: помощ: kedrin-module --help" "$("$tool" show "$work/m/a" Бит --width 3 2>&1)"
expect "no command" "kedrin-module: липсва команда
kedrin-module: помощ: kedrin-module --help" "$("$tool" 2>&1)"

# usage WANTED ARGUMENTS...: the message for invalid arguments
usage() {
    local wanted=$1
    shift
    expect "usage: $*" "kedrin-module: $wanted" "$("$tool" "$@" 2>&1 | head -1)"
}
usage 'липсва ТЕКСТ' search m
usage 'излишен аргумент: --x' search m a --x
usage 'излишни аргументи: --y --x' search m a --x --y
usage '--width изисква стойност' show m Jn --width
usage '--width: стойността x не е между 20 и 1000' show m Jn --width x
usage '--to: x не е сред {verse-lines,osis}' export m --to x
usage '--from: „x“ не е сред beblia|ces|json|opensong|osis|sqlite|usfm|usfx|usx|yaml|zefania|plain-lines|verse-lines' build a b --from x
usage '--places може да се даде само веднъж' check --places 5 --places 6 m
usage 'невалидна стойност: --json = maybe' search m a --json=maybe
usage '--whole-word не може заедно с --part' search m a --part --whole-word
usage '--whole-word не различава главни от малки букви, затова не може заедно с --case' search m a --case --whole-word
usage 'текстът за търсене е празен' search m ''
usage 'за build са нужни ИЗТОЧНИК и ПАПКА-НА-МОДУЛА или --all-sword ПАПКА' build a
usage '--all-sword може да се използва само с -q' build a --all-sword b
usage 'за check е нужен или МОДУЛ, или --list, но не и двете' check m --list
usage 'непозната команда „намери“' намери m
usage 'за get може да се даде ИМЕ или --list, но не и двете' get a --list
usage 'за get е нужна мрежата (http://127.0.0.1:1); разрешете я с --yes' get a --repository http://127.0.0.1:1
usage 'http://127.0.0.1:1: оттам никой не отговаря или това не е хранилище с текстове за SWORD' \
    get --list --repository http://127.0.0.1:1 --yes

# On a terminal get asks before it uses the network, and takes no answer for a no.
# asked ANSWER LAST-LINE
asked() {
    local said
    said=$(printf '%s\n' "$1" | script -qec "'$tool' get a --repository http://127.0.0.1:1" /dev/null | tr -d '\r')
    [[ $said == *"$question"* ]] || expect "the question" "$question" "$said"
    expect "the answer $1" "kedrin-module: $2" "$(tail -1 <<<"$said" | sed 's/.*kedrin-module: /kedrin-module: /')"
}
question="Ще се използва мрежата: http://127.0.0.1:1. Да продължи ли? [д/н] "
asked н "мрежата не е използвана"
asked "" "мрежата не е използвана"
asked да "http://127.0.0.1:1: оттам никой не отговаря или това не е хранилище с текстове за SWORD"

# The same in English.
LANG=C.UTF-8
usage '--width requires a value' show m Jn --width
usage '--places may be given only once' check --places 5 --places 6 m
usage 'unknown command "find"' find m
usage 'a command is required'
question="This uses the network: http://127.0.0.1:1. Continue? [y/n] "
asked n "the network was not used"
asked y "http://127.0.0.1:1: nothing answers there, or it is not a repository of SWORD texts"
LANG=bg_BG.UTF-8

expect "what the system says" "kedrin-module: /proc/nowhere: не може да се запише" \
    "$("$tool" build "$work/a.txt" /proc/nowhere/a 2>&1 | sed 's/ (.*//')"
for command in build get check export show search info words diff; do
    expect "the page of $command" "Употреба: kedrin-module $command" \
        "$("$tool" $command --help | sed -n '2s/ \[.*\| МОДУЛ.*//p')"
done

for arguments in "check $work/m/a --json" "search $work/m/a начало --json" "info $work/m/a --json"; do
    expect "JSON of ${arguments%% *}" "$(env LANG=C "$tool" $arguments)" "$("$tool" $arguments)"
done
[ $failures -eq 0 ]
