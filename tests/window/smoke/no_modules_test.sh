#!/usr/bin/env bash
# no_modules_test.sh KEDRIN PICTURES: a start without modules shows one message box and then ends with status
# 255.
set -euo pipefail
kedrin=$1 pictures=$2
source "$(dirname "$0")/smoke_lib.sh"
ln -s "$kedrin" "$scratch/kedrin"

"$scratch/kedrin" &
pid=$!
answer_box no-modules
ends 255
