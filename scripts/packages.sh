# Sourced by ./run, ./test and ./package: the Debian packages they need, and the installation of missing ones.
source "$(dirname "${BASH_SOURCE[0]}")/say.sh"

build_packages=(cmake ninja-build g++ pkg-config qt6-base-dev libicu-dev libsword-dev libcli11-dev libxml2-dev
    libexpat1-dev nlohmann-json3-dev robin-map-dev libxxhash-dev libfmt-dev libsqlite3-dev
    libzip-dev libyaml-dev zlib1g-dev gettext librsvg2-bin cmark-gfm)
text_packages=(sword-text-kjv sword-text-web fonts-dejavu-core)
screen_packages=(xvfb xauth xdotool x11-xkb-utils imagemagick)
session_packages=(at-spi2-core dbus-daemon libatspi2.0-dev x11-utils)
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev strace mandoc man-db bash-completion fish zsh xz-utils
    clang libclang-rt-14-dev llvm clang-format clang-tidy cppcheck python3 desktop-file-utils appstream git)
package_packages=(build-essential debhelper dpkg-dev)

# need_packages NAME...: installs the missing ones, as root or through sudo. If that is impossible, explains
# why and returns 1.
need_packages() {
    local missing=() as_root=()
    missing_packages "$@"
    [ ${#missing[@]} -eq 0 ] && return 0
    may_install || return 1
    say "Installing Debian packages: ${missing[*]}" "Инсталират се пакети на Debian: ${missing[*]}"
    install_packages
}

# Sets `missing`. dpkg fails for an unknown package, which is missing like the others.
missing_packages() {
    local installed package
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null) || true
    for package in "$@"; do
        grep -qxF -- "installed $package" <<<"$installed" || missing+=("$package")
    done
}

# Sets `as_root`, the prefix of a command that has to be run by root.
may_install() {
    if ! command -v apt-get >/dev/null; then
        explain "There is no apt-get here to install what Kedrin needs: ${missing[*]}
These scripts are made for Debian 12. On another system, install the same things and build with CMake (see CONTRIBUTING.md)." \
            "Тук няма apt-get, за да се инсталира нужното за Kedrin: ${missing[*]}
Скриптовете са за Debian 12. На друга система инсталирайте същото и сглобете програмата с CMake (вж. CONTRIBUTING.md)."
        return 1
    fi
    [ "$(id -u)" -eq 0 ] && return 0
    as_root=(sudo)
    if ! command -v sudo >/dev/null; then
        explain "Debian packages are missing, and there is neither root nor sudo to install them: ${missing[*]}
Ask the administrator of this machine for: apt-get install ${missing[*]}" \
            "Липсват пакети на Debian, а няма нито права на root, нито sudo, за да се инсталират: ${missing[*]}
Помолете администратора на машината за: apt-get install ${missing[*]}"
        return 1
    fi
    if ! sudo true; then
        explain "Debian packages are missing, and sudo refused to install them: ${missing[*]}
Ask the administrator of this machine for: apt-get install ${missing[*]}" \
            "Липсват пакети на Debian, а sudo отказа да се инсталират: ${missing[*]}
Помолете администратора на машината за: apt-get install ${missing[*]}"
        return 1
    fi
}

# A failed update of the lists may not matter: one source of several may be unavailable, or all archives
# present.
install_packages() {
    local PATH=$PATH:/usr/sbin:/sbin # needed by dpkg; su does not add them
    local are_lists_fresh=true
    if ! "${as_root[@]}" apt-get update -qq -o APT::Update::Error-Mode=any; then
        are_lists_fresh=false
        say "apt-get could not fetch all package lists (see above); going on with those of before." \
            "apt-get не успя да изтегли всички списъци с пакети (вж. по-горе); продължава се със старите." >&2
    fi
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null && return 0
    if $are_lists_fresh; then
        explain "apt-get could not install Debian packages (see above): ${missing[*]}
They are all in Debian 12, section main. Put right what apt-get names, or its sources in /etc/apt, and try again." \
            "apt-get не успя да инсталира пакети на Debian (вж. по-горе): ${missing[*]}
Всички те са в Debian 12, раздел main. Поправете това, което apt-get посочва, или източниците му в /etc/apt и опитайте отново."
    else
        explain "apt-get could neither fetch the package lists nor install Debian packages (see above): ${missing[*]}
Check the connection to the network and the sources in /etc/apt, and try again." \
            "apt-get не успя нито да изтегли списъците с пакети, нито да инсталира пакети на Debian (вж. по-горе): ${missing[*]}
Проверете връзката с мрежата и източниците в /etc/apt и опитайте отново."
    fi
    return 1
}
