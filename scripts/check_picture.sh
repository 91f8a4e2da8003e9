#!/usr/bin/env bash
# check_picture.sh FILE.png: whether it can be a screenshot of the window: large enough, with more than one
# colour.
set -euo pipefail
source "$(dirname "$0")/say.sh"
explain_failures

facts=$(identify -format '%m %w %h %k' "$1") ||
    fail "$1 is no picture (see above)." "$1 не е снимка (вж. по-горе)."
read -r format width height colours <<<"$facts"
if [ "$format" != PNG ] || [ "$width" -lt 600 ] || [ "$height" -lt 600 ] || [ "$colours" -lt 16 ]; then
    fail "$1 is not a picture of the window: $format, $width x $height pixels, $colours colours." \
        "$1 не е снимка на прозореца: $format, $width x $height пиксела, $colours цвята."
fi
say "$1 shows the window: $width x $height pixels, $colours colours." \
    "$1 показва прозореца: $width x $height пиксела, $colours цвята."
