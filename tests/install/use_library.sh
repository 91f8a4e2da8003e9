# shellcheck shell=bash
# Sourced by install_test.sh: builds programs against the library installed in $prefix, by its CMake package and by
# pkg-config, and runs them on the module мой.
headers="$prefix/include/tolvo"
project="$work/друг проект"
mkdir "$project"
cp "$source/tests/tolvo/third_program.cpp" "$here/first_verse.cpp" "$project"

# Each header compiles alone, and all that they include is installed.
(cd "$headers" && find . -name '*.h' | sed 's/^..//') >"$work/headers"
while read -r header; do
    name=${header//[\/.]/_}
    printf '#include "%s"\n' "$header" >"$project/$name.cpp"
    echo "target_sources(headers PRIVATE $name.cpp)"
done <"$work/headers" >"$project/headers.cmake"
[ "$(wc -l <"$work/headers")" -ge 20 ] || fail "headers are missing: $(cat "$work/headers")"

cat >"$project/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.25)
project(other LANGUAGES CXX)
find_package(tolvo 0.3 REQUIRED)
add_executable(third third_program.cpp)
add_executable(first first_verse.cpp)
add_library(headers OBJECT)
include(headers.cmake)
foreach(target third first headers)
  target_link_libraries(${target} PRIVATE tolvo::tolvo)
endforeach()
END
"$cmake" -G Ninja -S "$project" -B "$project/build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$cxx" \
    -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror $flags" >"$work/log" || fail "$(cat "$work/log")"
"$cmake" --build "$project/build" -j2 >"$work/log" || fail "$(cat "$work/log")"
grep -rqF "$source/src" "$prefix/lib/cmake" && fail "the package leads to the sources"

export PKG_CONFIG_PATH="$prefix/lib/pkgconfig"
[ "$(pkg-config --modversion tolvo)" = "$(sed -n 's/^set(PACKAGE_VERSION "\(.*\)")$/\1/p' \
    "$prefix/lib/cmake/tolvo/tolvo-config-version.cmake")" ] || fail "two versions of the library"
eval "\"\$cxx\" $flags \"\$project/first_verse.cpp\" -o \"\$work/first\" $(pkg-config --cflags --libs tolvo)"

modules="$prefix/lib/kedrin/modules/bibles"
for first in "$project/build/first" "$work/first"; do
    said=$("$first" "$modules" | iconv -f windows-1251)
    [ "$said" = $'Мой превод\nВ начало бе светлина.' ] || fail "$first says: $said"
done
"$project/build/third" >/dev/null || fail "the third program"
