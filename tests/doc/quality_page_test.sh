#!/usr/bin/env bash
# quality_page_test.sh PROJECT: doc/quality.md holds the sections as they were measured, all of them.
set -euo pipefail
project=$1
page=$(mktemp)
trap 'rm -f "$page"' EXIT
"$project/scripts/quality_page.sh" "$page"
diff "$project/doc/quality.md" "$page" || { echo "FAILED: run scripts/quality_page.sh"; exit 1; }
for section in "$project"/doc/quality/*.md; do
    heading=$(head -1 "$section")
    if [[ $heading != '## '* ]] || ! grep -qxF -- "$heading" "$page"; then
        echo "FAILED: $section is not in the page"
        exit 1
    fi
done
