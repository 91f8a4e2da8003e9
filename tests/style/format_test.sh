#!/usr/bin/env bash
# format_test.sh CLANG_FORMAT FOLDER...: whether clang-format would leave all sources and headers in the
# folders unchanged.
set -euo pipefail
find "${@:2}" \( -name '*.h' -o -name '*.cpp' \) -print0 | xargs -0 "$1" --dry-run -Werror
