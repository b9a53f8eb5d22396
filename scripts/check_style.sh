#!/usr/bin/env bash
# The checks that need no running program: format, arrows between folders, QML syntax, clang-tidy. check_style.sh PRESET
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t code < <(find sdk client plugin ui commands host service tools tests bench -name '*.cpp' -o -name '*.h' 2>/dev/null)
echo "clang-format: ${#code[@]} files"
clang-format --dry-run --Werror "${code[@]}"

echo "includes between folders"
bash scripts/check_arrows.sh

mapfile -t qml < <(find ui commands tests -name '*.qml')
echo "qmllint: ${#qml[@]} files"
qmllint=$(command -v qmllint || echo /usr/lib/qt5/bin/qmllint)
"$qmllint" "${qml[@]}"

python3 scripts/tidy.py "build/$1"
