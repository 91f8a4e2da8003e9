#!/usr/bin/env bash
# release.sh: proves a release and tags it. Nothing is tagged unless all of this holds:
#   - every file is committed, and the version has no tag yet
#   - debian/changelog names a distribution, and CHANGELOG.md and the metainfo begin with its version
#   - in a fresh clone, ./test and ./test-package succeed (which makes the packages twice and compares them)
# The packages and their checksums are in build/release-VERSION then.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/say.sh
source scripts/version.sh
explain_failures

if [ $# -ne 0 ]; then
    explain "usage: scripts/release.sh" "употреба: scripts/release.sh"
    exit 2
fi
version=$(shown_version)
tag=v$version
out=$PWD/build/release-$version
clone=$out/clone

changed=$(git status --porcelain)
[ -z "$changed" ] || fail "There are changes that are not committed:
$changed" "Има промени, които не са записани в хранилището:
$changed"
! git rev-parse --quiet --verify "refs/tags/$tag" >/dev/null ||
    fail "$tag is tagged already. Begin the next version in debian/changelog and CHANGELOG.md." \
        "Етикетът $tag вече съществува. Започнете следващата версия в debian/changelog и CHANGELOG.md."
! head -n 1 debian/changelog | grep -q UNRELEASED ||
    fail "debian/changelog says UNRELEASED. Name the distribution and the date there." \
        "В debian/changelog пише UNRELEASED. Посочете там дистрибуцията и датата."
differing=$(differing_versions)
[ -z "$differing" ] || fail "The version of debian/changelog is $version, but not in:
$differing" "Версията в debian/changelog е $version, но не и в:
$differing"

rm -rf "$out"
mkdir -p "$out"
git clone --quiet . "$clone"
"$clone/test" || end_explained
"$clone/test-package" || end_explained
cp "$clone"/build/test-package/packages/now/*.{deb,dsc,tar.xz,changes,buildinfo} "$out"
(cd "$out" && sha256sum -- *.* >SHA256SUMS)
rm -rf "$clone"
git tag --annotate --message "Kedrin $version" "$tag"
say "$tag is tagged; the packages are in $out. To publish it: git push origin $tag" \
    "Поставен е етикетът $tag; пакетите са в $out. За да се публикува: git push origin $tag"
