#!/usr/bin/env bash
# format_test.sh CLANG_FORMAT FOLDER...: whether clang-format would leave every source and header below as it is.
set -euo pipefail
find "${@:2}" \( -name '*.h' -o -name '*.cpp' \) -print0 | xargs -0 "$1" --dry-run -Werror
