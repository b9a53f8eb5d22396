#!/usr/bin/env bash
# Logs in by keyboard as the demo user, then lets the driver plug-in walk the screens:
#   smoke.sh BIN SERVICE NETWORK DATA DIR       NETWORK is the address at which the workbench reaches the service
set -euo pipefail
bin=$1 service=$2 network=$3 data=$4 pictures=$5

export SMOKE_DIR=$pictures SMOKE_SERVICE=$service
# The display's driver keeps what it allocates, and exact stacks of every allocation would make the walk crawl.
export ASAN_OPTIONS=${ASAN_OPTIONS:-}:detect_leaks=0:fast_unwind_on_malloc=1
"$bin/workbench" --service "$network" --data "$data/workbench" \
    --plugins "$bin/../plugins" --plugins "$bin/../tests/plugins" &
workbench=$!
trap 'kill $workbench 2>/dev/null || true' EXIT

# A window that goes while xdotool looks at it ends the search.
login=
for ((i = 0; i < 20; i++)); do
    login=$(timeout 20 xdotool search --sync --onlyvisible --name '登录' | head -n 1) && [ -n "$login" ] && break
done
xdotool windowfocus --sync "$login"
sleep 0.5
import -window root "$pictures/01-login.png"
# The server is known, the name field has the focus; Return in the password field logs in.
xdotool type --delay 20 demo
xdotool key Tab
xdotool type --delay 20 demo
xdotool key Return

status=0
wait "$workbench" || status=$?
trap - EXIT
exit $status
