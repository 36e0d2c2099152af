#!/usr/bin/env bash
# edit_and_save.sh VELKO DEMO: opens the demo game, goes to another room, changes the first entry
# of its palette with the keyboard, saves and leaves. The file must differ in exactly that byte.
set -euo pipefail
velko=$1
demo=$2
source "$(dirname "$0")/display.sh"
start_display

cp -r "$demo" "$work/game"
rom=$work/game/demo.nes
cp "$rom" "$work/before.nes"

# Where palettes lie, by what the module tells of their table and region.
palette_key() { awk -v key="$1:" '/^  pahPal:/ {on = 1} on && $1 == key {print $2, $3; exit}' \
    "$work"/game/modules/*/data.yaml; }
word_at() { od -An -tu2 --endian=little -j "$1" -N 2 "$rom" | tr -d ' '; }
read -r table_bank _ <<< "$(palette_key pBank)"
read -r table _ <<< "$(palette_key pMemStart)"
read -r low_bank high_bank <<< "$(palette_key dBank | tr -d '[],')"
entry() { echo $((table_bank * 16384 + (table + $1 * 2 & 0x7FFF) + 16)); }

# The first room whose palette is not room 0's.
room=1
while [ "$(word_at "$(entry $room)")" -eq "$(word_at "$(entry 0)")" ]; do
    room=$((room + 1))
done
address=$(word_at "$(entry $room)")
bank=$([ $((address & 0x4000)) -eq 0 ] && echo "$low_bank" || echo "$high_bank")
offset=$((bank * 16384 + (address & 0x3FFF) + 16))

"$velko" -C "$work/game" "$rom" 2> "$work/velko.log" &
program=$!
wait_for_window --name '^Olvard - v4 - .*demo\.nes$'
for _ in $(seq $room); do press Down; done     # the room list has the focus
for _ in 1 2 3 4 5 6; do press ctrl+Next; done # the seventh tab
press alt+v ctrl+a                             # the value box
press 2 a
press ctrl+s
press alt+f
press x
expect_end "$program" 0

changes=$(cmp -l "$work/before.nes" "$rom" || true)
[ -n "$changes" ] || fail "nothing was saved"
[ "$(wc -l <<< "$changes")" -eq 1 ] || fail "more than one byte differs: $changes"
read -r position _ now <<< "$changes"
[ "$position" -eq $((offset + 1)) ] || fail "byte $position differs (counted from 1), not $((offset + 1))"
[ "$now" = 52 ] || fail "the byte is octal $now, not \$2A"
