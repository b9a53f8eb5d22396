#!/usr/bin/env bash
# Builds for release and prints every benchmark as: name | ours | peer | ratio | goal
# Each row's two figures are measured in the same run, alternately. ./bench.sh [PROGRAM...] runs only those.
set -euo pipefail
cd "$(dirname "$0")"

bash scripts/packages.sh bench
bash scripts/build.sh release "${@:-benchmarks}"

# What Qt and the service have to say besides goes to a log.
log=build/bench.log
: >"$log"
export QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software
echo "name | ours | peer | ratio | goal"
for program in build/release/bench/*; do
    [ -f "$program" ] && [ -x "$program" ] || continue
    name=$(basename "$program")
    if [ $# -gt 0 ] && [[ " $* " != *" $name "* ]]; then
        continue
    fi
    "$program" 2>>"$log" || { tail -20 "$log" >&2; echo "$name failed; the whole log is $log" >&2; exit 1; }
done
