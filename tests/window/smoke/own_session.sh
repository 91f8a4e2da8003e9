#!/usr/bin/env bash
# own_session.sh COMMAND...: runs it in a separate D-Bus session, so that accessibility events do not reach
# other sessions and nothing is left running.
set -euo pipefail
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
dbus-run-session -- "$@"
