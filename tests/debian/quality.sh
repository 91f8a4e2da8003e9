#!/usr/bin/env bash
# quality.sh: what Debian's programs find in the packages of /packages/now, and a program that is built with the library,
# as root in a fresh Debian, in the project's folder.
source debian/tests/checks.sh
export DEBIAN_FRONTEND=noninteractive
lean() { apt-get --quiet=2 --yes -o APT::Install-Recommends=false "$@" 2>&1; }
packages=/packages/now

# finds_nothing COMMAND...: it succeeds and prints nothing.
finds_nothing() {
    local said status=0
    said=$("$@" 2>&1) || status=$?
    echo "$said"
    [ -z "$said" ] && [ "$status" -eq 0 ]
}

echo "# Debian's programs"
check "the lists of packages are fetched" lean update
check "they are installed" lean install lintian desktop-file-utils appstream
check "lintian finds nothing" finds_nothing lintian --pedantic --display-info --tag-display-limit 0 --allow-root \
    $packages/*.changes
mkdir "$work/tree"
for package in $packages/*.deb; do dpkg-deb --extract "$package" "$work/tree"; done
for file in "$work"/tree/usr/share/applications/*.desktop; do
    check "desktop-file-validate ${file##*/}" finds_nothing desktop-file-validate "$file"
done
for file in "$work"/tree/usr/share/metainfo/*.xml; do
    check "appstreamcli validate ${file##*/}" appstreamcli validate --no-net --pedantic "$file"
done

echo "# the library"
check "it is installed" lean install $packages/{libtolvo-dev,kedrin-module,kedrin-common}_*.deb cmake g++ ninja-build pkg-config
debian/tests/library
