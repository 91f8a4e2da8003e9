#!/usr/bin/env bash
# release_test.sh SCRIPTS: what release.sh refuses, in both languages, and what it does otherwise.
set -uo pipefail
scripts=$1
source "$(dirname "$0")/script_test.sh"
use_programs bash cat cp dirname env git grep head locale mkdir readlink rm sed sha256sum tr
project=$work/project
mkdir -p "$project/debian"
cp -r "$scripts" "$project"
git() { command git -C "$project" -c user.name=N -c user.email=n@example.org "$@"; }

# program NAME LINE...: one of the project, which records that it was called.
program() {
    printf '#!/bin/bash\ncd "$(dirname "$0")"; echo "$0" | sed "s:.*/::" >>"%s/calls"\n%s\n' "$work" "$2" >"$project/$1"
    chmod +x "$project/$1"
}
save() { git add -A && git commit -qm "$1"; }
tags() { git tag | tr '\n' ' '; }

# refuses ENGLISH BULGARIAN
refuses() {
    local head tags
    head=$(git rev-parse HEAD) tags=$(tags)
    run_script project/scripts/release.sh HOME="$work"
    expect "$1: status" 1 "$status"
    expect "$1" "$1" "$err"
    expect "$1: calls" '' "$calls"
    run_script project/scripts/release.sh HOME="$work" LANG=bg_BG.UTF-8
    expect "$1: Bulgarian" "$2" "$err"
    expect "$1: tags" "$tags" "$(tags)"
}

printf 'kedrin (0.4~rc1) bookworm; urgency=medium\n' >"$project/debian/changelog"
printf '# Changelog\n\n## 0.4-rc1\n' >"$project/CHANGELOG.md"
printf '/build/\n' >"$project/.gitignore"
program test 'exit 0'
program test-package 'mkdir -p build/test-package/packages/now; cd build/test-package/packages/now
for end in deb dsc tar.xz changes buildinfo; do echo $end >kedrin.$end; done'
git init -q -b main
git config user.name N
git config user.email n@example.org
save first

run_script 'project/scripts/release.sh now' HOME="$work"
expect usage '2 usage: scripts/release.sh' "$status $err"

echo new >"$project/new"
refuses $'There are changes that are not committed:\n?? new' \
    $'Има промени, които не са записани в хранилището:\n?? new'
rm "$project/new"
echo more >>"$project/CHANGELOG.md"
refuses $'There are changes that are not committed:\n M CHANGELOG.md' \
    $'Има промени, които не са записани в хранилището:\n M CHANGELOG.md'

sed -i 's/0.4-rc1/[Unreleased]/' "$project/CHANGELOG.md"
save unreleased
refuses $'The version of debian/changelog is 0.4-rc1, but not in:\nCHANGELOG.md: Unreleased' \
    $'Версията в debian/changelog е 0.4-rc1, но не и в:\nCHANGELOG.md: Unreleased'
sed -i 's/\[Unreleased\]/0.4-rc1/' "$project/CHANGELOG.md"
sed -i 's/bookworm/UNRELEASED/' "$project/debian/changelog"
save distribution
refuses 'debian/changelog says UNRELEASED. Name the distribution and the date there.' \
    'В debian/changelog пише UNRELEASED. Посочете там дистрибуцията и датата.'
sed -i 's/UNRELEASED/bookworm/' "$project/debian/changelog"

for failing in test test-package; do
    cp "$project/$failing" "$work/sound"
    program "$failing" 'exit 3'
    save "$failing fails"
    run_script project/scripts/release.sh HOME="$work"
    expect "$failing fails: status" 3 "$status"
    expect "$failing fails: errors" '' "$err"
    expect "$failing fails: the last call" "$failing" "$(tail -n 1 <<<"$calls")"
    expect "$failing fails: tags" '' "$(tags)"
    cp "$work/sound" "$project/$failing"
done

save sound
run_script project/scripts/release.sh HOME="$work"
expect 'status' '0 ' "$status $err"
expect 'calls' $'test\ntest-package' "$calls"
expect 'tag' 'v0.4-rc1 ' "$(tags)"
expect 'what is tagged' "$(git rev-parse HEAD)" "$(git rev-parse 'v0.4-rc1^{commit}')"
folder=build/release-0.4-rc1
expect 'says' "v0.4-rc1 is tagged; the packages are in $project/$folder. To publish it: git push origin v0.4-rc1" "$out"
expect 'checksums' 5 "$(cd "$project/$folder" && sha256sum --check SHA256SUMS 2>/dev/null | grep -c OK)"
refuses 'v0.4-rc1 is tagged already. Begin the next version in debian/changelog and CHANGELOG.md.' \
    'Етикетът v0.4-rc1 вече съществува. Започнете следващата версия в debian/changelog и CHANGELOG.md.'
exit $((failures > 0))
