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
need_packages "${build_packages[@]}" "${test_packages[@]}"

out=build/coverage
targets=() tests=() note="All tests ran but those that the test preset \`coverage\` leaves out."
for folder in "$@"; do
    targets+=(--target "tests/$folder/all")
    tests+=("$folder")
done
cmake --preset coverage >/dev/null
cmake --build --preset coverage "${targets[@]}"
rm -rf $out/profiles
if [ $# -eq 0 ]; then
    ctest --preset coverage -j "$(nproc)"
else
    note="The tests of these folders ran: \`$*\`."
    export LLVM_PROFILE_FILE=$PWD/$out/profiles/%c%m.profraw
    for folder in "${tests[@]}"; do
        ctest --test-dir "$out/tests/$folder" -j "$(nproc)" -E '\.x\.' --output-on-failure
    done
fi
llvm-profdata merge -sparse -o $out/coverage.profdata $out/profiles/*.profraw
mapfile -t programs < <(find $out -type f -perm -u+x -exec sh -c 'head -c 4 "$1" | grep -q ELF' sh {} \; -print | sort)
llvm-cov export -format=lcov -instr-profile=$out/coverage.profdata -ignore-filename-regex='/(build|tests|fuzz)/|^/usr/' \
    "${programs[0]}" "${programs[@]/#/-object=}" >$out/coverage.lcov
tests/coverage/report.py $out/coverage.lcov "$note" "$@"
