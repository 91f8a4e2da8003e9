#!/usr/bin/env bash
# need_packages_test.sh SCRIPTS CASE: what need_packages installs, and its message if it cannot.
set -uo pipefail
scripts=$1 case=$2
source "$(dirname "$0")/script_test.sh"
use_programs bash cat dirname dpkg-query env grep true
stand_in id 'echo 0'
stand_in apt-get
mkdir "$work/dpkg"

as_in_the_scripts='set -euo pipefail; source "$SCRIPTS/packages.sh"; explain_failures; need_packages libicu-dev libgmock-dev'
update='apt-get update -qq -o APT::Update::Error-Mode=any'
install='apt-get install -y -qq --no-install-recommends'

# need STATUS OUT ERR CALLS [VARIABLE=VALUE...]: the result of needing two packages; CALLS without those of
# id.
need() {
    local language=${5-LANG=C}
    run_script "$as_in_the_scripts" SCRIPTS="$scripts" DPKG_ADMINDIR="$work/dpkg" "${@:5}"
    expect "$language: status" "$1" "$status"
    expect "$language: output" "$2" "$out"
    expect "$language: errors" "$3" "$err"
    expect "$language: calls" "$4" "$(grep -v '^id ' <<<"$calls")"
}

english='Installing Debian packages: libicu-dev libgmock-dev'
bulgarian='Инсталират се пакети на Debian: libicu-dev libgmock-dev'

# status_of NAME STATE: a package's record in dpkg's database.
status_of() { printf 'Package: %s\nStatus: %s\nArchitecture: all\nVersion: 1\nMaintainer: x\nDescription: x\n\n' "$1" "$2"; }

empty_database() {
    need 0 "$english" '' "$update"$'\n'"$install libicu-dev libgmock-dev"
    : >"$work/dpkg/status"
    need 0 "$english" '' "$update"$'\n'"$install libicu-dev libgmock-dev"
    need 0 "$bulgarian" '' "$update"$'\n'"$install libicu-dev libgmock-dev" LANG=bg_BG.UTF-8
}

nothing_missing() {
    { status_of libicu-dev 'install ok installed' && status_of libgmock-dev 'hold ok installed'; } >"$work/dpkg/status"
    need 0 '' '' ''
}

some_missing() {
    status_of libgmock-dev 'install ok installed' >"$work/dpkg/status"
    need 0 'Installing Debian packages: libicu-dev' '' "$update"$'\n'"$install libicu-dev"
    { status_of libicu-dev 'deinstall ok config-files' && status_of libgmock-dev 'install ok installed'; } \
        >"$work/dpkg/status"
    need 0 'Installing Debian packages: libicu-dev' '' "$update"$'\n'"$install libicu-dev"
    { status_of libicu-dev 'install ok half-installed' && status_of libicu-dev-x 'install ok installed'; } \
        >"$work/dpkg/status"
    need 0 "$english" '' "$update"$'\n'"$install libicu-dev libgmock-dev"
}

unknown_to_apt() {
    stand_in apt-get '[ "$1" = update ] || { echo "E: Unable to locate package libgmock-dev" >&2; exit 100; }'
    need 1 "$english" "E: Unable to locate package libgmock-dev
apt-get could not install Debian packages (see above): libicu-dev libgmock-dev
They are all in Debian 12, section main. Put right what apt-get names, or its sources in /etc/apt, and try again." \
        "$update"$'\n'"$install libicu-dev libgmock-dev"
    need 1 "$bulgarian" "E: Unable to locate package libgmock-dev
apt-get не успя да инсталира пакети на Debian (вж. по-горе): libicu-dev libgmock-dev
Всички те са в Debian 12, раздел main. Поправете това, което apt-get посочва, или източниците му в /etc/apt и опитайте отново." \
        "$update"$'\n'"$install libicu-dev libgmock-dev" LC_MESSAGES=bg_BG.UTF-8
}

no_network() {
    stand_in apt-get 'echo "E: $1: no network" >&2; exit 100'
    need 1 "$english" "E: update: no network
apt-get could not fetch all package lists (see above); going on with those of before.
E: install: no network
apt-get could neither fetch the package lists nor install Debian packages (see above): libicu-dev libgmock-dev
Check the connection to the network and the sources in /etc/apt, and try again." \
        "$update"$'\n'"$install libicu-dev libgmock-dev"
    need 1 "$bulgarian" "E: update: no network
apt-get не успя да изтегли всички списъци с пакети (вж. по-горе); продължава се със старите.
E: install: no network
apt-get не успя нито да изтегли списъците с пакети, нито да инсталира пакети на Debian (вж. по-горе): libicu-dev libgmock-dev
Проверете връзката с мрежата и източниците в /etc/apt и опитайте отново." \
        "$update"$'\n'"$install libicu-dev libgmock-dev" LC_ALL=bg_BG.UTF-8
}

# The real apt-get prints only warnings for lists that it cannot download.
real_apt_without_network() {
    use_programs apt-get
    mkdir -p "$work/apt"/{lists/partial,cache/archives/partial,parts}
    cat >"$work/apt.conf" <<END
Dir::Etc { SourceList "$work/apt/sources.list"; SourceParts "$work/apt/parts"; Parts "$work/apt/parts"; };
Dir::State "$work/apt"; Dir::State::lists "$work/apt/lists"; Dir::Cache "$work/apt/cache";
Dir::State::status "$work/dpkg/status"; Debug::NoLocking "true"; APT::Sandbox::User ""; Acquire::Retries "0";
END
    echo 'deb [trusted=yes] http://127.0.0.1:9/debian bookworm main' >"$work/apt/sources.list"
    : >"$work/dpkg/status"
    run_script "$as_in_the_scripts" SCRIPTS="$scripts" DPKG_ADMINDIR="$work/dpkg" APT_CONFIG="$work/apt.conf"
    expect status 1 "$status"
    expect "last sentences" "apt-get could neither fetch the package lists nor install Debian packages (see above): libicu-dev libgmock-dev
Check the connection to the network and the sources in /etc/apt, and try again." "$(tail -n 2 <<<"$err")"
}

# An unrelated unavailable source does not prevent an installation.
one_source_fails() {
    stand_in apt-get '[ "$1" = install ] || { echo "E: update: no such source" >&2; exit 100; }'
    need 0 "$english" "E: update: no such source
apt-get could not fetch all package lists (see above); going on with those of before." \
        "$update"$'\n'"$install libicu-dev libgmock-dev"
}

stale_lists() {
    stand_in apt-get '[ "$1" = install ] || { : >"'"$work/fresh"'"; exit 0; }' \
        '[ -e "'"$work/fresh"'" ] || { echo "E: 404 Not Found" >&2; exit 100; }'
    need 0 "$english" '' "$update"$'\n'"$install libicu-dev libgmock-dev"
}

neither_root_nor_sudo() {
    stand_in id 'echo 1000'
    need 1 '' "Debian packages are missing, and there is neither root nor sudo to install them: libicu-dev libgmock-dev
Ask the administrator of this machine for: apt-get install libicu-dev libgmock-dev" ''
    need 1 '' "Липсват пакети на Debian, а няма нито права на root, нито sudo, за да се инсталират: libicu-dev libgmock-dev
Помолете администратора на машината за: apt-get install libicu-dev libgmock-dev" '' LANG=bg_BG.UTF-8
}

through_sudo() {
    stand_in id 'echo 1000'
    stand_in sudo '"$@"'
    need 0 "$english" '' "sudo true
sudo $update
$update
sudo env DEBIAN_FRONTEND=noninteractive $install libicu-dev libgmock-dev
$install libicu-dev libgmock-dev"
}

sudo_refuses() {
    stand_in id 'echo 1000'
    stand_in sudo 'echo "sudo: a password is required" >&2; exit 1'
    need 1 '' "sudo: a password is required
Debian packages are missing, and sudo refused to install them: libicu-dev libgmock-dev
Ask the administrator of this machine for: apt-get install libicu-dev libgmock-dev" 'sudo true'
    need 1 '' "sudo: a password is required
Липсват пакети на Debian, а sudo отказа да се инсталират: libicu-dev libgmock-dev
Помолете администратора на машината за: apt-get install libicu-dev libgmock-dev" 'sudo true' LANG=bg_BG.UTF-8
}

no_apt() {
    rm "$work/bin/apt-get" "$work/bin/dpkg-query"
    need 1 '' "There is no apt-get here to install what Kedrin needs: libicu-dev libgmock-dev
These scripts are made for Debian 12. On another system, install the same things and build with CMake (see CONTRIBUTING.md)." ''
    need 1 '' "Тук няма apt-get, за да се инсталира нужното за Kedrin: libicu-dev libgmock-dev
Скриптовете са за Debian 12. На друга система инсталирайте същото и сглобете програмата с CMake (вж. CONTRIBUTING.md)." '' \
        LANG=bg_BG.UTF-8
}

# With a user's PATH, as kept by su, dpkg does not find its helper programs.
roots_programs_are_found() {
    stand_in apt-get 'echo "$PATH" >&2'
    need 0 "$english" "$work/bin:/usr/sbin:/sbin"$'\n'"$work/bin:/usr/sbin:/sbin" \
        "$update"$'\n'"$install libicu-dev libgmock-dev"
}

"$case"
exit $((failures > 0))
