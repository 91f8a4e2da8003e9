# Sourced by the scripts: messages are Bulgarian in a Bulgarian locale, installed or not, else English; and a
# script that fails always prints a message.

messages_locale=${KEDRIN_LANGUAGE:-${LC_ALL:-${LC_MESSAGES:-${LANG-}}}} # the first is set by use_utf8
case $messages_locale in
    bg*) is_bulgarian=true ;;
    *) is_bulgarian=false ;;
esac
is_explained=false
failed_command=

# say ENGLISH BULGARIAN
say() {
    if $is_bulgarian; then echo "$2"; else echo "$1"; fi
}

# explain ENGLISH BULGARIAN: prints what failed and what to do; the script should then end.
explain() {
    say "$@" >&2
    is_explained=true
}

# fail ENGLISH BULGARIAN: explains, and ends the script.
fail() {
    explain "$@"
    exit 1
}

# end_explained: for COMMAND || end_explained, if the command has already explained its failure.
end_explained() {
    local status=$?
    is_explained=true
    exit $status
}

# Redefined by a script that has to clean up when it ends.
clean_up() { :; }

explain_end() {
    local status=$1
    trap - ERR
    clean_up || true
    if [ "$status" -ne 0 ] && ! $is_explained; then
        say "$0: failed with status $status${failed_command:+ at: $failed_command}
The messages above name the cause. Remove it and start $0 again." \
            "$0: край с код $status${failed_command:+ при: $failed_command}
Причината е в съобщенията по-горе. Отстранете я и стартирайте $0 отново." >&2
    fi
}

# keep_failed COMMAND FILE LINE
keep_failed() { failed_command="$1 (${2##*/}:$3)"; }

# Ctrl-C and kill need no explanation.
end_by_signal() {
    is_explained=true
    exit "$1"
}

# Called first by each script that is started directly.
explain_failures() {
    set -E # functions and subshells report the failed command
    trap 'keep_failed "$BASH_COMMAND" "${BASH_SOURCE[0]-bash}" "$LINENO"' ERR
    trap 'explain_end $?' EXIT
    trap 'end_by_signal 129' HUP
    trap 'end_by_signal 130' INT
    trap 'end_by_signal 143' TERM
}
