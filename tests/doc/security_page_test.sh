#!/usr/bin/env bash
# SECURITY.md: the tests that it names, by name or pattern, are in the build.
#   security_page_test.sh PROJECT BUILD-FOLDER CTEST
set -uo pipefail
page=$1/SECURITY.md listing=$("$3" --test-dir "$2" -N 2>/dev/null)
failures=0 count=0

while read -r name; do
    count=$((count + 1))
    pattern=${name//./\\.}
    grep -qE ": (.*/)?${pattern//\*/.*}(/.*)?( |$)" <<<"$listing" && continue
    echo "FAILED: there is no test $name"
    failures=$((failures + 1))
done < <(grep -oE '`([A-Za-z0-9_]+\.[A-Za-z0-9_.*]+|fuzz_replay_\*)`' "$page" | tr -d '`')
[ $count -ge 40 ] || { echo "FAILED: only $count tests are named" && failures=1; }
exit $((failures > 0))
