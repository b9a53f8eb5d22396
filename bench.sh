#!/usr/bin/env bash
# Builds for release and prints every benchmark as: name | ours | peer | ratio | goal
# Each row's two figures are measured in the same run, alternately. ./bench.sh [PROGRAM...] runs only those.
set -euo pipefail
cd "$(dirname "$0")"

bash scripts/packages.sh bench
bash scripts/build.sh release >build/bench.log 2>&1 || { cat build/bench.log >&2; exit 1; }

export QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software
echo "name | ours | peer | ratio | goal"
for program in build/release/bench/*; do
    [ -f "$program" ] && [ -x "$program" ] || continue
    name=$(basename "$program")
    if [ $# -gt 0 ] && [[ " $* " != *" $name "* ]]; then
        continue
    fi
    "$program"
done
