#!/usr/bin/env bash
# Runs the walk through the screens on what this build folder holds: smoke_test.sh BUILD_DIR
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$1
rm -rf "$build/smoke"
DISCLOSURE_BUILT=yes exec "$root/run.sh" --preset "$(basename "$build")" --smoke "$build/smoke"
