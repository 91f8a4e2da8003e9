#!/usr/bin/env bash
# werror_test.sh CMAKE SOURCES: warnings are errors in every preset, but not in a build without one.
set -uo pipefail
cmake=$1 sources=$2
source "$(dirname "$0")/script_test.sh"
unset CXXFLAGS
cd "$sources" || exit

# configured ARGUMENTS...: the warning options of the sources after `cmake ARGUMENTS`.
configured() {
    "$cmake" "$@" -B "$work/build" -DKEDRIN_TESTS=OFF >/dev/null || echo "cmake $* failed"
    grep '"command":' "$work/build/compile_commands.json" | grep -oE -e '-W(conversion|error)' | sort -u | xargs
    rm -r "$work/build"
}
expect 'without a preset' '-Wconversion' "$(configured -G Ninja -S .)"
expect 'preset dev' '-Wconversion -Werror' "$(configured --preset dev)"
expect 'preset dev, as ./run configures' '-Wconversion' "$(configured --preset dev -DKEDRIN_WERROR=OFF)"

presets=$("$cmake" --list-presets | sed -n 's/^ *"\(.*\)".*/\1/p')
expect 'presets' 'dev release asan coverage' "$(xargs <<<"$presets")"
for preset in $presets; do
    expect "preset $preset" 'KEDRIN_WERROR="ON"' "$("$cmake" -N --preset "$preset" | grep -o 'KEDRIN_WERROR.*')"
done
exit $((failures > 0))
