#!/usr/bin/env bash
# Holds who may include whom; see docs/architecture.md. A folder may always include itself.
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
    [service]=""
)
bad=0
for room in "${!allowed[@]}"; do
    while IFS=: read -r file line include; do
        target=${include#*\"}
        target=${target%%/*}
        case " ${allowed[$room]} ${room%%/*} " in
        *" $target "*) ;;
        *) echo "$file:$line: $room may not include $target" >&2; bad=1 ;;
        esac
    done < <(grep -rnE '^#include "(sdk|client|plugin|ui|commands|host|service|tests|bench|tools)/' "$room" --include='*.h' --include='*.cpp' || true)
done
if grep -rnE '^#include "plugin/entry' plugin/service; then
    echo "plugin/service may not include plugin/entry" >&2
    bad=1
fi
exit $bad
