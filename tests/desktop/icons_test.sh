#!/usr/bin/env bash
# icons_test.sh HICOLOR: each rendered icon has the size of its folder, colours and a transparent background.
set -euo pipefail
for size in 16 22 24 32 48 64 128 256; do
    icon=$1/${size}x$size/apps/kedrin.png
    facts=$(identify -format '%m %wx%h %[opaque] %k' "$icon")
    read -r format dimensions opaque colours <<<"$facts"
    if [ "$format $dimensions ${opaque,,}" != "PNG ${size}x$size false" ] || [ "$colours" -lt 8 ]; then
        echo "$icon: $facts"
        exit 1
    fi
done
