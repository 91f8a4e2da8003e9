#!/usr/bin/env bash
# fresh_root_test.sh SCRIPTS: if no fresh Debian can be created, one line says why, and the tests still run.
set -uo pipefail
scripts=$1
source "$(dirname "$0")/script_test.sh"
use_programs apt-config bash cat chmod dirname env grep mktemp readlink rm seq sleep
stand_in dpkg-query 'printf "installed %s\n" "$@"'
stand_in id 'echo 0'
project=$work/project
mkdir -p "$project" "$work/tmp"
cp -r "$scripts" "$scripts/../.ci" "$project"
printf '#!/bin/bash\necho "the tests run: $*"\nexit 3\n' >"$project/test"
chmod +x "$project/test"

# does_without ENGLISH BULGARIAN
does_without() {
    run_script 'exec project/.ci/run' TMPDIR="$work/tmp"
    expect "$1: status" 3 "$status"
    expect "$1" "No fresh Debian is made here: $1." "$err"
    expect "$1: tests" 'the tests run: dev -LE slow' "$out"
    run_script 'exec project/.ci/run' TMPDIR="$work/tmp" LANG=bg_BG.UTF-8
    expect "$1: Bulgarian" "Тук не се прави нова система Debian: $2." "$err"
    run_script 'exec project/scripts/fresh_root.sh true' TMPDIR="$work/tmp"
    expect "$1: status alone" 77 "$status"
    expect "$1: left behind" '' "$(ls -A "$work/tmp")"
}

stand_in unshare '[[ "$*" != *mmdebstrap* ]]'
does_without 'mmdebstrap failed (see above)' 'mmdebstrap не успя (вж. по-горе)'
stand_in unshare 'echo "unshare: Operation not permitted" >&2; exit 1'
does_without 'unshare, mount or chroot is not permitted' 'unshare, mount или chroot не са позволени'
stand_in dpkg-query 'exit 1'
stand_in apt-get 'echo "E: no network" >&2; exit 100'
does_without 'mmdebstrap cannot be installed' 'mmdebstrap не може да се инсталира'
stand_in id 'echo 1000'
does_without 'that takes root' 'за това трябват права на root'
exit $((failures > 0))
