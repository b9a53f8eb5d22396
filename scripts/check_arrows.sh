#!/usr/bin/env bash
# Holds who may include whom, and which folders' QML may be imported; see docs/architecture.md. A room may always
# include itself, and what it may include it may include whole.
set -euo pipefail
cd "$(dirname "$0")/.."

declare -A allowed=(
    [sdk]=""
    [client]=""
    [ui]="sdk"
    [commands]="ui sdk"
    [plugin/service]="client sdk"
    [plugin/entry]="plugin commands ui client sdk"
    [host]="sdk"
    [service/ports]=""
    [service/text]=""
    [service/drawing]=""
    [service/domain]="service/drawing service/ports service/text"
    [service/files]="service/ports"
    [service/store]="service/ports service/text"
    [service/mail]="service/domain service/ports service/text"
    [service/http]="service/domain service/files service/ports service/text"
    [service/commands]="service"
)
bad=0

# FILE:LINE ROOM TARGET: whether the room may point to the target, a path or a prefix of one.
check() {
    local where=$1 room=$2 target=$3 may
    for may in "$room" ${allowed[$room]}; do
        [[ "$target/" == "$may"/* ]] && return
    done
    echo "$where: $room may not include $target" >&2
    bad=1
}

for room in "${!allowed[@]}"; do
    while IFS=: read -r file line include; do
        target=${include#*\"}
        check "$file:$line" "$room" "${target%\"*}"
    done < <(grep -rnE '^#include "(sdk|client|plugin|ui|commands|host|service|tests|bench|tools)/' "$room" --include='*.h' --include='*.cpp' || true)
done

# QML names folders by resource paths ("qrc:/ui/...") or relative to itself; the module UI is ui/imports. The main
# window's page is one of the screens, though its path is qrc:/ui/main.qml.
for room in ui commands; do
    while IFS=: read -r file line import; do
        target=${import#*\"}
        target=${target%%\"*}
        case "$target" in
        qrc:/*) target=${target#qrc:/} ;;
        *) target=$(realpath -m --relative-to=. "$(dirname "$file")/$target") ;;
        esac
        check "$file:$line" "$([ "$file" = ui/main.qml ] && echo commands || echo "$room")" "$target"
    done < <(grep -rnE '^(import|\.import) "|source: "qrc:/' "$room" --include='*.qml' --include='*.js' || true)
done

# The service writes through `changing`, which alone repeats what another transaction was in the way of.
if grep -rn 'Access::Write' service --include='*.cpp' --include='*.h' | grep -vE '^service/(ports|store)/' >&2; then
    echo "a writing transaction is begun by changing()" >&2
    bad=1
fi
exit $bad
