#!/usr/bin/env bash
# say_test.sh SCRIPTS: the language of the scripts, and that each prints a message when it fails.
set -uo pipefail
scripts=$1
source "$(dirname "$0")/script_test.sh"
use_programs bash cat dirname false locale rm sleep true

# says WANTED [VARIABLE=VALUE...]
says() {
    run_script 'source "$SCRIPTS/say.sh"; say "the house" "къщата"' SCRIPTS="$scripts" "${@:2}"
    expect "${*:2}" "$1" "$out$err"
}
says 'the house'
says 'the house' LANG=en_US.UTF-8
says 'the house' LC_ALL=C LC_MESSAGES=bg_BG.UTF-8 LANG=bg_BG.UTF-8
says 'the house' LC_MESSAGES=C.UTF-8 LANG=bg_BG.UTF-8
says 'къщата' LANG=bg_BG.UTF-8
says 'къщата' LANG=bg
says 'къщата' LC_ALL= LC_MESSAGES= LANG=bg_BG.UTF-8
says 'къщата' LC_MESSAGES=bg_BG LANG=en_US.UTF-8
says 'къщата' LC_ALL=bg_XX LC_MESSAGES=en_US.UTF-8 LANG=en_US.UTF-8

# use_utf8 keeps the language, for the scripts and the programs they start.
run_script 'source "$SCRIPTS/say.sh"; source "$SCRIPTS/build.sh"; use_utf8; locale charmap; echo "$LANGUAGE"
bash -c "source \"$SCRIPTS/say.sh\"; say the-house къщата"' SCRIPTS="$scripts" LANG=bg_XX
expect 'use_utf8' $'UTF-8\nbg\nкъщата' "$out$err"

# ends STATUS ERRORS LINE [VARIABLE=VALUE...]: the output of a script with that line.
ends() {
    run_script 'set -euo pipefail; source "$SCRIPTS/say.sh"; explain_failures
'"$3" SCRIPTS="$scripts" "${@:4}"
    expect "$3: status" "$1" "$status"
    expect "$3: errors" "$2" "$err"
}
unexplained() {
    echo "./script: failed with status $1 at: $2
The messages above name the cause. Remove it and start ./script again."
}
ends 0 '' 'true'
ends 1 "$(unexplained 1 'false (script:3)')" 'false'
ends 1 "$(unexplained 1 'cat (script:3)')" 'false | cat'
ends 1 "$(unexplained 1 'x=$(false) (script:3)')" 'x=$(false)'
ends 1 "$(unexplained 1 'false (script:3)')" 'f() { false; true; }; f'
ends 1 "bash: failed with status 1 at: false (bash:1)
The messages above name the cause. Remove it and start bash again." \
    'exec bash -euc "source \"$SCRIPTS/say.sh\"; explain_failures; false"'
ends 7 "./script: failed with status 7
The messages above name the cause. Remove it and start ./script again." 'exit 7'
ends 1 "./script: край с код 1 при: false (script:3)
Причината е в съобщенията по-горе. Отстранете я и стартирайте ./script отново." 'false' LANG=bg_BG.UTF-8
ends 1 'the house' 'fail "the house" "къщата"'
ends 1 'къщата' 'fail "the house" "къщата"' LANG=bg_BG.UTF-8
ends 1 'the house' 'f() { explain "the house" "къщата"; return 1; }; f'
ends 3 '' 'bash -c "exit 3" || end_explained'
ends 1 $'the house\nremoved' 'clean_up() { echo removed >&2; }; fail "the house" "къщата"'
ends 143 'removed' 'clean_up() { echo removed >&2; }; kill -TERM $$; sleep 9'
ends 130 'removed' 'clean_up() { echo removed >&2; }; kill -INT $$; sleep 9'
exit $((failures > 0))
