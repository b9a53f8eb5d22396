#!/usr/bin/env bash
# The plug-in shows the host exactly its two functions.
set -euo pipefail
found=$(nm -D --defined-only --extern-only "$1" | awk '{print $NF}' | sort | tr '\n' ' ')
[ "$found" = "GetCommands GetManagers " ] || { echo "exported: $found" >&2; exit 1; }
