#!/usr/bin/env bash
# Installs what is missing, builds, checks the style and runs every test: ./test.sh [--preset dev|asan|tsan|release]
set -euo pipefail
cd "$(dirname "$0")"

preset=dev
while [ $# -gt 0 ]; do
    case "$1" in
    --preset) preset=${2:?--preset needs a name}; shift 2 ;;
    *) echo "usage: test.sh [--preset dev|asan|tsan|release]" >&2; exit 2 ;;
    esac
done

bash scripts/packages.sh test
bash scripts/build.sh "$preset"
if [ "$preset" = dev ]; then
    bash scripts/check_style.sh "$preset"
fi
fixed=()
if [ "$preset" = tsan ] && [ "$(cat /proc/sys/vm/mmap_rnd_bits)" -gt 28 ]; then
    fixed=(setarch -R)  # the compiler's thread sanitizer has no room for addresses as random as that
fi
"${fixed[@]}" ctest --preset "$preset" -j "$(nproc)"
