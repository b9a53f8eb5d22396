#!/usr/bin/env bash
# Installs what is missing, builds, checks the style and runs every test: ./test.sh [--preset dev|asan|release]
set -euo pipefail
cd "$(dirname "$0")"

preset=dev
while [ $# -gt 0 ]; do
    case "$1" in
    --preset) preset=${2:?--preset needs a name}; shift 2 ;;
    *) echo "usage: test.sh [--preset dev|asan|release]" >&2; exit 2 ;;
    esac
done

bash scripts/packages.sh test
bash scripts/build.sh "$preset"
if [ "$preset" = dev ]; then
    bash scripts/check_style.sh "$preset"
fi
ctest --preset "$preset" -j "$(nproc)"
