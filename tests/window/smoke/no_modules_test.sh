#!/usr/bin/env bash
# no_modules_test.sh KEDRIN PICTURES: a start without modules shows one box and ends with status 255 after it.
set -euo pipefail
kedrin=$1 pictures=$2
source "$(dirname "$0")/smoke_lib.sh"
export LC_ALL=C.UTF-8
mkdir -p "$pictures"
home=$(mktemp -d)
ln -s "$kedrin" "$home/kedrin"

"$home/kedrin" &
pid=$!
trap 'kill $pid 2>/dev/null || true' EXIT
answer_box no-modules
ends 255
rm -rf "$home"
