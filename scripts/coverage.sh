#!/usr/bin/env bash
# Counts which lines and branches of src the tests reach, and writes doc/quality/coverage.md.
#   scripts/coverage.sh            everything; takes an hour on two cores
#   scripts/coverage.sh FOLDER...  only the tests of these folders of src, and only their lines
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
source scripts/build.sh
explain_failures
export LC_ALL=C.UTF-8
unset LANGUAGE
need_packages "${build_packages[@]}" "${test_packages[@]}" gcovr

out=build/coverage
targets=() tests=() note="All tests ran but those that the test preset \`coverage\` leaves out."
for folder in "$@"; do
    targets+=(--target "tests/$folder/all")
    tests+=("$folder")
done
cmake --preset coverage >/dev/null
cmake --build --preset coverage "${targets[@]}"
find $out -name '*.gcda' -delete
if [ $# -eq 0 ]; then
    ctest --preset coverage -j "$(nproc)"
else
    note="The tests of these folders ran: \`$*\`."
    for folder in "${tests[@]}"; do
        GCOV_ERROR_FILE=/dev/null ctest --test-dir "$out/tests/$folder" -j "$(nproc)" -E '\.x\.' --output-on-failure
    done
fi
# One source is compiled a second time for processors without SSE2, with other functions, which gcovr cannot merge.
gcovr -r . --object-directory $out -f src/ --exclude-directories '.*portable_scan.*' --exclude-throw-branches \
    --exclude-unreachable-branches --json \
    -o $out/coverage.json $out
tests/coverage/report.py $out/coverage.json "$note" "$@"
