#!/usr/bin/env bash
# Installs by name what the three commands need: `packages.sh run|test|bench`. Does nothing where all is there.
set -euo pipefail
cd "$(dirname "$0")/.."

build=(
    build-essential cmake ninja-build ccache pkg-config git
    qtbase5-dev qtdeclarative5-dev
    libboost-dev libboost-system-dev libcpprest-dev libssl-dev
    libsoci-dev libsqlite3-dev rapidjson-dev libsodium-dev libspdlog-dev libcli11-dev libtomlplusplus-dev
    libgtest-dev libgmock-dev libbenchmark-dev libyaml-cpp-dev
    libcurl4-openssl-dev libicu-dev libhowardhinnant-date-dev tzdata ca-certificates libcairo2-dev
)
runtime=(
    qml-module-qtquick2 qml-module-qtquick-window2 qml-module-qtquick-layouts qml-module-qtquick-controls
    qml-module-qtquick-controls2 qml-module-qtquick-templates2 qml-module-qtquick-privatewidgets
    qml-module-qtgraphicaleffects qml-module-qtqml qml-module-qtqml-models2
    qttranslations5-l10n libgl1-mesa-dri fonts-wqy-microhei fonts-noto-cjk fonts-noto-color-emoji curl
)
browser=(tigervnc-standalone-server tigervnc-tools novnc websockify icewm x11-utils)
virtual=(xvfb xauth x11-utils icewm xdotool imagemagick)
checks=(clang-format clang-tidy python3 python3-aiosmtpd qtdeclarative5-dev-tools binutils)

case "${1:-}" in
run) wanted=("${build[@]}" "${runtime[@]}" "${virtual[@]}") ;;
browser) wanted=("${browser[@]}") ;;
test) wanted=("${build[@]}" "${runtime[@]}" "${virtual[@]}" "${checks[@]}") ;;
bench) wanted=("${build[@]}" "${runtime[@]}") ;;
*) echo "usage: packages.sh run|browser|test|bench" >&2; exit 2 ;;
esac

missing=()
for name in "${wanted[@]}"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
done
[ ${#missing[@]} -gt 0 ] || exit 0

root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Install as root: ${missing[*]}" >&2; exit 1; }
    root=(sudo)
fi
echo "Installing ${#missing[@]} packages: ${missing[*]}" >&2

bash scripts/progress.sh "Reading what packages there are" build/update.log "${root[@]}" apt-get update -o APT::Status-Fd=1
bash scripts/progress.sh "Installing" build/install.log "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -o APT::Status-Fd=1 --no-install-recommends "${missing[@]}"
