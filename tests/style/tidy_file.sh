#!/usr/bin/env bash
# tidy_file.sh CLANG_TIDY BUILD SOURCE STAMP: creates the stamp if clang-tidy finds nothing in the source.
set -euo pipefail
mkdir -p "$(dirname "$4")"
"$1" --quiet -p "$2" "$3" >"$4.findings" 2>&1 || {
    cat "$4.findings"
    exit 1
}
rm "$4.findings"
: >"$4"
