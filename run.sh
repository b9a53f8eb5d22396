#!/usr/bin/env bash
# Builds what is missing, starts the service with demo data and opens the workbench on it.
#   ./run.sh                      with a display: the workbench's window; without: the same in a browser page
#   ./run.sh --smoke DIR          unattended, on a virtual display with data of its own: walks the screens, saves a
#                                 picture of each in DIR, and fails on the first thing that is not as it should be
#   ./run.sh --preset dev         which build to run (release unless given)
#   ./run.sh --browser            the browser page even where there is a display
set -euo pipefail
cd "$(dirname "$0")"
root=$PWD

usage() { sed -n '2,7s/^# \{0,1\}//p' run.sh >&2; exit 2; }

preset=release smoke= browser=
while [ $# -gt 0 ]; do
    case "$1" in
    --preset) preset=${2:?--preset needs a name}; shift 2 ;;
    --smoke) smoke=${2:?--smoke needs a folder}; shift 2 ;;
    --browser) browser=yes; shift ;;
    *) usage ;;
    esac
done
[ -n "$smoke" ] || [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || browser=yes

bash scripts/packages.sh run
[ -z "$browser" ] || bash scripts/packages.sh browser
targets=(workbench disclosure-service DisclosurePackage)
[ -z "$smoke" ] || targets+=(SmokeDriver)
if [ -z "${DISCLOSURE_BUILT:-}" ]; then  # set by the tests, which have just built
    bash scripts/build.sh "$preset" "${targets[@]}"
fi
bin=$root/build/$preset/bin

# Everything started here is ended here, youngest first.
started=()
scratch=$(mktemp -d)
finish() {
    local i
    for ((i = ${#started[@]} - 1; i >= 0; i--)); do
        kill "${started[i]}" 2>/dev/null || true
        wait "${started[i]}" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# Runs the command in the background until the script ends; its output goes to the log of that name.
start() {
    local name=$1
    shift
    "$@" >"$logs/$name.log" 2>&1 &
    started+=($!)
}

# Runs the command to its end, and ends it when this script is told to end meanwhile.
foreground() {
    "$@" &
    started+=($!)
    wait $!
}

# Waits up to 20 s until the command succeeds, as long as the process started last lives.
wait_for() {
    local what=$1 log=$2 i
    shift 2
    for ((i = 0; i < 200; i++)); do
        "$@" >/dev/null 2>&1 && return 0
        kill -0 "${started[-1]}" 2>/dev/null || break
        sleep 0.1
    done
    echo "$what did not start; its log:" >&2
    tail -20 "$logs/$log.log" >&2
    exit 1
}

if [ -n "$smoke" ]; then
    mkdir -p "$smoke"
    smoke=$(cd "$smoke" && pwd)
    data=$scratch/data
else
    data=${XDG_DATA_HOME:-$HOME/.local/share}/disclosure
fi
logs=$data/logs
mkdir -p "$data" "$logs"
chmod 700 "$data"

# The service, on a port that the system chooses.
"$bin/disclosure-service" seed --demo --database "sqlite:$data/service.db" >"$logs/seed.log" 2>&1 ||
    { cat "$logs/seed.log" >&2; exit 1; }
config=()
if [ -n "$smoke" ]; then
    printf '[reminders]\ninterval_seconds = 1\nhour = 0\n' >"$scratch/service.toml"
    config=(--config "$scratch/service.toml")
fi
start service "$bin/disclosure-service" "${config[@]}" serve --database "sqlite:$data/service.db" --listen 127.0.0.1:0 \
    --port-file "$scratch/port"
wait_for "The service" service test -s "$scratch/port"
service=127.0.0.1:$(cat "$scratch/port")
wait_for "The service" service curl -fsS "http://$service/readyz"

# A display number that no server uses.
free_display() {
    local n
    for ((n = 90; n < 200; n++)); do
        [ -e "/tmp/.X$n-lock" ] || [ -e "/tmp/.X11-unix/X$n" ] || { echo "$n"; return; }
    done
    exit 1
}
start_window_manager() {
    wait_for "The display" display xdpyinfo
    mkdir -p "$scratch/icewm"
    printf '%s\n' 'TitleFontNameXft="WenQuanYi Micro Hei:size=11"' 'ShowTaskBar=0' >"$scratch/icewm/preferences"
    start wm env ICEWM_PRIVCFG="$scratch/icewm" icewm
    wait_for "The window manager" wm sh -c "xprop -root _NET_SUPPORTING_WM_CHECK | grep -q window"
}

if [ -n "$smoke" ]; then
    number=$(free_display)
    export DISPLAY=:$number HOME=$scratch LANG=C.UTF-8 TZ=Asia/Shanghai
    start display Xvfb ":$number" -screen 0 1600x1000x24 -nolisten tcp
    start_window_manager
    # The workbench reaches the service through a network that the walk can cut.
    start proxy python3 tests/end_to_end/proxy.py "$service" "$scratch/proxy"
    export SMOKE_PROXY_PID=${started[-1]}
    wait_for "The network" proxy test -s "$scratch/proxy"
    foreground timeout 120 bash tests/end_to_end/smoke.sh "$bin" "$service" "127.0.0.1:$(cat "$scratch/proxy")" "$data" "$smoke"
    exit
fi

if [ -n "$browser" ]; then
    number=$(free_display)
    export DISPLAY=:$number
    password=$(head -c 6 /dev/urandom | od -An -tx1 | tr -d ' \n' | head -c 8)
    printf '%s\n' "$password" | vncpasswd -f >"$scratch/vnc"
    vnc=$((5900 + number)) web=$((6000 + number))
    start display Xtigervnc ":$number" -localhost -rfbport "$vnc" -SecurityTypes VncAuth -PasswordFile "$scratch/vnc" \
        -geometry 1600x900 -depth 24 -nolisten tcp
    start_window_manager
    start page websockify --web /usr/share/novnc "127.0.0.1:$web" "127.0.0.1:$vnc"
    echo "Open http://127.0.0.1:$web/vnc.html?autoconnect=1&resize=remote&password=$password"
fi

echo "The service answers at http://$service, its data lies in $data; user demo, password demo."
WORKBENCH_PASSWORD=demo foreground "$bin/workbench" --service "$service" --user demo --data "$data/workbench"
