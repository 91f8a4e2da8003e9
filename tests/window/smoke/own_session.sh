#!/usr/bin/env bash
# own_session.sh COMMAND...: runs it in a D-Bus session of its own, so that what assistive technology is told reaches
# nobody else's session and nothing is left behind.
set -euo pipefail
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
dbus-run-session -- "$@"
