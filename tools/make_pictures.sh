#!/bin/sh
# Renders ui/Images/src into ui/Images: the PNGs and Images.qrc. Needs the SVG reader of Qt (libqt5svg5).
set -e
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
${CXX:-g++} -std=c++20 -O1 -fPIC tools/make_pictures.cpp -o "$work/make_pictures" $(pkg-config --cflags --libs Qt5Gui)
QT_QPA_PLATFORM=offscreen "$work/make_pictures" ui/Images
