# Sourced by ./run and ./test, in the project's folder.

# build_preset PRESET [OPTION...]: configures with these options for cmake, unless already done with the
# current presets, and builds. PRESET-short builds a part of PRESET.
build_preset() {
    local configured=${1%-short}
    local out=build/$configured
    [ "$out/build.ninja" -nt CMakePresets.json ] || cmake --preset "$configured" "${@:2}" >/dev/null ||
        fail "CMake could not prepare the build in $out (see above). If the project was moved or copied, remove $out and try again." \
            "CMake не успя да подготви $out (вж. по-горе). Ако проектът е преместен или копиран, изтрийте $out и опитайте отново."
    cmake --build --preset "$1" ||
        fail "The build in $out failed (see above). Remove the cause, or $out if it is older than the sources, and try again." \
            "Сглобяването в $out не успя (вж. по-горе). Отстранете причината, или изтрийте $out, ако е остаряла, и опитайте отново."
}

# can_write FILE: whether it is, or can be created as, a writable file.
can_write() { [ ! -d "$1" ] && if [ -e "$1" ]; then [ -w "$1" ]; else [ -w "$(dirname -- "$1")" ]; fi; }

# The toolkit needs UTF-8, which a missing locale does not provide. The user's language is kept.
use_utf8() {
    [ "$(locale charmap 2>/dev/null)" = UTF-8 ] && return
    export KEDRIN_LANGUAGE=$messages_locale LC_ALL=C.UTF-8
    ! $is_bulgarian || export LANGUAGE=bg
}
