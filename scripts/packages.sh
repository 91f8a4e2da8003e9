# Sourced by ./run and ./test: which Debian packages they need, and how missing ones are installed.

build_packages=(cmake ninja-build g++ pkg-config qt6-base-dev libicu-dev libsword-dev libcli11-dev libxml2-dev nlohmann-json3-dev libfmt-dev gettext)
text_packages=(sword-text-kjv sword-text-web fonts-dejavu-core)
screen_packages=(xvfb xauth xdotool x11-xkb-utils imagemagick)
session_packages=(at-spi2-core dbus-daemon libatspi2.0-dev x11-utils)
test_packages=(libgtest-dev libbenchmark-dev strace mandoc bash-completion)

# need_packages NAME...: installs those that are not there, as root or through sudo.
need_packages() {
    local installed missing=() package as_root=()
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null | awk '$2 == "installed" {print $1}')
    for package in "$@"; do
        grep -qxF -- "$package" <<<"$installed" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These Debian packages are missing, and neither root nor sudo is at hand to install them:" >&2
            echo "    ${missing[*]}" >&2
            echo "Ask whoever runs this machine for: apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing Debian packages: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >/dev/null
}
