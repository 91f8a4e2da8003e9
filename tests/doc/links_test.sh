#!/usr/bin/env bash
# links_test.sh PROJECT: every link between the documents leads to a file and, with a "#", to a heading of it.
set -euo pipefail
project=$1
failures=0 count=0

# anchors FILE: those of its headings
anchors() {
    # shellcheck disable=SC2016 # a character
    sed -nE 's/^#+ //p' "$1" | LC_ALL=C.UTF-8 sed -E 's/[][`()]//g; s/[^[:alnum:] _-]//g; s/ /-/g; s/./\L&/g'
}

# check PAGE LINK
check() {
    local target=${2%%#*}
    target=${target:+$(dirname "$1")/$target}
    target=${target:-$1}
    count=$((count + 1))
    [ -e "$target" ] && { [[ $2 != *#* ]] || anchors "$target" | grep -qxF -- "${2#*#}"; } && return
    echo "FAILED: ${1#"$project"/}: $2"
    failures=$((failures + 1))
}

while read -r page; do
    while read -r link; do check "$page" "$link"; done < <(grep -oE '\]\([^) ]+\)' "$page" | sed 's/^](//; s/)$//' |
        grep -v '^[a-z]*:' || true)
done < <(find "$project"/*.md "$project/doc" -name '*.md' | sort)
[ "$count" -gt 200 ] || failures=1
echo "$count links were followed"
exit $((failures > 0))
