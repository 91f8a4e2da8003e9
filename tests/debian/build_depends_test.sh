#!/usr/bin/env bash
# build_depends_test.sh PROJECT: debian/control names the packages that ./run installs for the build, and no others.
set -euo pipefail
cd "$1"
source scripts/packages.sh
diff <(printf '%s\n' "${build_packages[@]}" | grep -vx g++ | sort) \
    <(sed -n '/^Build-Depends:/,/^[^ ]/s/^ \([^ ,]*\).*/\1/p' debian/control | grep -vx debhelper-compat | sort)
