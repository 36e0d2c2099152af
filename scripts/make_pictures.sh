#!/usr/bin/env bash
# Makes the pictures in docs/pictures again, from the demo game, without a display: every tab on
# room 0, and the tool windows.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

cmake --preset release > /dev/null
cmake --build --preset release --target velko-pictures velko_demo
all=$(mktemp -d)
trap 'rm -rf "$all"' EXIT
# The caption tells the file's path: a relative one, so that it is the same everywhere.
cd build/release/demo-game
QT_QPA_PLATFORM=offscreen ../app/velko-pictures . demo.nes "$all"
cd ../../..
rm -rf docs/pictures
mkdir docs/pictures
for picture in "$all"/*-room-0.png; do
    cp "$picture" "docs/pictures/$(basename "$picture" -room-0.png).png"
done
cp "$all"/{room-selector,area-editor}.png docs/pictures
cp "$all/main-map-editor-truck.png" docs/pictures/main-map-editor.png
