#!/usr/bin/env bash
# Makes the pictures in docs/pictures again, from the demo game, without a display.
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
mkdir -p docs/pictures
cp "$all/palette-room-0.png" docs/pictures/main-palette.png
