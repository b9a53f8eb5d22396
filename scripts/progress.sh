#!/usr/bin/env bash
# Runs a command and shows on stderr how far it is: progress.sh WHAT LOG COMMAND...
# It reads ninja's "[n/m]" and apt's status lines; on a terminal one line is rewritten, elsewhere each tenth gets a line.
# All else goes to the log; when the command fails, the log's end and its place are shown.
set -uo pipefail
what=$1 log=$2
shift 2
mkdir -p "$(dirname "$log")"

show() {
    local percent=$1 of=$2
    if [ -t 2 ]; then
        printf '\r\033[K%s: %3d %%%s' "$what" "$percent" "$of" >&2
        drawn=yes
    elif ((percent / 10 != tenth)); then
        tenth=$((percent / 10))
        echo "$what: $percent %$of" >&2
    fi
}

watch() {
    local line tenth=-1 drawn= from=0
    while IFS= read -r line; do
        printf '%s\n' "$line"
        if [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]]; then
            show $((BASH_REMATCH[1] * 100 / BASH_REMATCH[2])) " (${BASH_REMATCH[1]} of ${BASH_REMATCH[2]})"
        elif [[ $line =~ ^(dl|pm)status:[^:]*:([0-9]+) ]]; then
            # First all is downloaded, then all is unpacked and set up.
            [ "${BASH_REMATCH[1]}" = dl ] || from=50
            show $((from + BASH_REMATCH[2] / 2)) ""
        fi
    done
    [ -z "$drawn" ] || printf '\r\033[K' >&2
}

"$@" 2>&1 | watch >"$log"
code=${PIPESTATUS[0]}
if [ "$code" -ne 0 ]; then
    grep -vE "^(dl|pm)status:" "$log" | tail -40 >&2
    echo "$what failed; the whole log is $log" >&2
fi
exit "$code"
