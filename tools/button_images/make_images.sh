#!/bin/sh
# Rebuilds src/ui/resources/{up,over,down}.jpg, the image button's state pictures.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
out="$here/../../src/ui/resources"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
c++ -std=c++20 -fPIC -o "$work/button_images" "$here/button_images.cpp" \
    $(pkg-config --cflags --libs Qt6Gui)
QT_QPA_PLATFORM=offscreen "$work/button_images" "$out"
