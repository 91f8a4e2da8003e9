#!/usr/bin/env bash
# version_test.sh PROJECT KEDRIN-MODULE: the version of debian/changelog is that of the program, of the newest heading of
# CHANGELOG.md and of the newest release in the metainfo; where it is not, the file is named.
set -euo pipefail
project=$1 tool=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source "$project/scripts/version.sh"
failures=0

# expect WHAT WANTED GOT
expect() {
    [ "$2" = "$3" ] && return
    printf 'FAILED: %s\n  wanted: %s\n  got:    %s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}

cd "$project"
expect 'files that differ' '' "$(differing_versions)"
expect 'the program' "kedrin-module $(shown_version)" "$("$tool" --version)"

mkdir -p "$work/debian" "$work/data"
cd "$work"
printf 'kedrin (0.4~rc1) bookworm; urgency=medium\n\nkedrin (0.3~betha) bookworm; urgency=medium\n' >debian/changelog
printf '# Changelog\n\n## 0.4-rc1\n\n## 0.3-betha\n' >CHANGELOG.md
expect 'as packages have it' 0.4~rc1 "$(package_version)"
expect 'as programs print it' 0.4-rc1 "$(shown_version)"
expect 'without metainfo' '' "$(differing_versions)"
printf '  <release version="0.4~rc1" date="2026-01-01"/>\n  <release version="0.3~betha"/>\n' >data/a.metainfo.xml
expect 'equal' '' "$(differing_versions)"
printf '  <release version="0.3~betha"/>\n' >data/a.metainfo.xml
printf '## [Unreleased]\n\n## 0.4-rc1\n' >CHANGELOG.md
expect 'both differ' $'CHANGELOG.md: Unreleased\ndata/a.metainfo.xml: 0.3-betha' "$(differing_versions)"
exit $((failures > 0))
