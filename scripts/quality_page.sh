#!/usr/bin/env bash
# quality_page.sh [FILE]: writes doc/quality.md, or FILE, from the sections in doc/quality/, each of which the program
# or script that measures it has written. doc.quality compares the page with them.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
sections=(coverage mutation static damage endurance failing-calls hostile-sources speed speed-history)

print_page() {
    cat <<'END'
# Quality, measured

What the tests reach and notice, what the programs withstand, and how fast they are. Each section below is written by
the command that it names; `scripts/quality_page.sh` puts them together.
END
    local section
    for section in "${sections[@]}"; do
        [ -e "doc/quality/$section.md" ] || continue
        echo
        # a picture lies beside its section
        sed -E 's#\]\(([a-z_-]+\.svg)\)#](quality/\1)#g' "doc/quality/$section.md"
    done
}

page=$(print_page)
printf '%s\n' "$page" >"${1:-doc/quality.md}"
