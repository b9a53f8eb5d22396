#!/usr/bin/env bash
# Configures and builds, showing how far it is: build.sh PRESET [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
preset=$1
shift
bash scripts/progress.sh "Configuring for $preset" "build/$preset.configure.log" cmake --preset "$preset"
bash scripts/progress.sh "Building for $preset" "build/$preset.log" cmake --build --preset "$preset" ${@:+--target "$@"}
