#!/usr/bin/env bash
# fresh_root.sh COMMAND [INSTEAD]: runs COMMAND, a line for bash, as root in a copy of the project inside a
# minimal Debian 12 with only apt, with the network settings of this machine's apt. If no such root can be
# created, it prints the reason in one line, and runs INSTEAD in the project itself or, without one, ends with
# status 77. The root is created in $TMPDIR (about 4 GB if the project is built in it), and removed. The folder
# KEDRIN_PACKAGES, if that is set, is copied to /packages there.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
explain_failures

command=$1 instead=${2-}
scratch=
worker=

# in_own_namespaces COMMAND...: its mounts are private and end with it. It is not run in the foreground, where
# the shell would handle signals only after its end.
in_own_namespaces() {
    local status=0
    unshare --mount --propagation private --pid --fork --kill-child --ipc --uts "$@" </dev/null &
    worker=$!
    wait "$worker" || status=$?
    worker=
    return "$status"
}

clean_up() {
    if [ -n "$worker" ]; then
        kill -KILL "$worker" || true
        wait "$worker" || true
    fi
    [ -n "$scratch" ] || return 0
    for _ in $(seq 50); do # its last processes may still be ending
        rm -rf --one-file-system "$scratch" 2>"$scratch.errors" && break
        sleep 0.2
    done
    [ ! -e "$scratch" ] || cat "$scratch.errors" >&2
    rm -f "$scratch.errors"
}

# do_without ENGLISH BULGARIAN: prints why there is no root; ends the script.
do_without() {
    explain "No fresh Debian is made here: $1." "Тук не се прави нова система Debian: $2."
    [ -n "$instead" ] || exit 77
    clean_up
    exec bash -c "$instead"
}

need_what_makes_roots() {
    [ "$(id -u)" -eq 0 ] || do_without "that takes root" "за това трябват права на root"
    need_packages mmdebstrap >/dev/null 2>&1 ||
        do_without "mmdebstrap cannot be installed" "mmdebstrap не може да се инсталира"
    in_own_namespaces --mount-proc chroot / true 2>/dev/null ||
        do_without "unshare, mount or chroot is not permitted" "unshare, mount или chroot не са позволени"
}

# The sources of this machine, if it is a Debian 12 too; else mmdebstrap takes Debian's own.
debian_sources() {
    local file
    for file in /etc/apt/sources.list.d/debian.sources /etc/apt/sources.list; do
        if [ -f "$file" ] && grep -q '^[^#]*\bbookworm\b' "$file"; then
            echo "$file"
            return
        fi
    done
}

make_root() {
    local sources certificates=/etc/ssl/certs/ca-certificates.crt
    scratch=$(mktemp -d "${TMPDIR:-/tmp}/kedrin-root.XXXXXX")
    chmod 755 "$scratch" # apt downloads as a separate user
    # the proxies and other settings of this machine's apt, in any of its files
    apt-config dump Acquire | grep -E '^Acquire::(https?|Check-|Force|Languages|Retries)' >"$scratch/apt.conf" || true
    sources=$(debian_sources)
    in_own_namespaces mmdebstrap --quiet --variant=apt --mode=root --aptopt="$scratch/apt.conf" bookworm \
        "$scratch/root" ${sources:+"$sources"} ||
        do_without "mmdebstrap failed (see above)" "mmdebstrap не успя (вж. по-горе)"
    cp -L /etc/resolv.conf "$scratch/root/etc/resolv.conf"
    if grep -q 'https:' "$scratch/apt.conf" ${sources:+"$sources"} && [ -f $certificates ]; then
        install -D $certificates "$scratch/root$certificates"
    fi
    mkdir "$scratch/root/kedrin"
    tar --create --exclude=./build --exclude=./.git . | tar --extract --no-same-owner --directory "$scratch/root/kedrin"
    [ -z "${KEDRIN_PACKAGES-}" ] || cp -R "$KEDRIN_PACKAGES" "$scratch/root/packages"
    if [ -d ../shared/data ]; then # texts without which some tests are not built
        mkdir "$scratch/root/shared"
        cp -R ../shared/data "$scratch/root/shared/data"
    fi
}

need_what_makes_roots
make_root
in_own_namespaces scripts/enter_root.sh "$scratch/root" "$command" || end_explained
