#!/usr/bin/env bash
# edit_and_save.sh VELKO DEMO: opens the demo game under Xvfb, goes to another room, changes one
# entry of its palette with the keyboard and saves. The file must then differ in exactly that byte.
set -euo pipefail
velko=$1
demo=$2

work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT
fail() { echo "edit_and_save: $*" >&2; exit 1; }

Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3> "$work/display" 2> "$work/xvfb.log" &
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
[ -s "$work/display" ] || fail "Xvfb did not start: $(cat "$work/xvfb.log")"
DISPLAY=:$(cat "$work/display")
export DISPLAY QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$work
chmod 700 "$work"

cp -r "$demo" "$work/game"
cp "$work/game/demo.nes" "$work/before.nes"
"$velko" -C "$work/game" "$work/game/demo.nes" 2> "$work/velko.log" &
program=$!

window=$(timeout 60 xdotool search --sync --onlyvisible --name '^Olvard - v4 - .*demo\.nes$' | head -n 1) \
    || fail "no window: $(cat "$work/velko.log")"
xdotool windowfocus --sync "$window"
press() { xdotool key --delay 60 "$@"; sleep 0.5; }

press Down                    # the room list has the focus: on to room 1
for _ in 1 2 3 4 5 6; do press ctrl+Next; done # the seventh tab
press alt+v ctrl+a            # the value box
press 2 a
press ctrl+s

# Saving tells nothing; give it a moment, then look at the file.
for _ in $(seq 50); do
    cmp -s "$work/before.nes" "$work/game/demo.nes" || break
    sleep 0.1
done
changes=$(cmp -l "$work/before.nes" "$work/game/demo.nes" || true)
[ -n "$changes" ] || fail "nothing was saved"
[ "$(wc -l <<< "$changes")" -eq 1 ] || fail "more than one byte differs: $changes"
read -r _ _ now <<< "$changes"
[ "$now" = 52 ] || fail "the byte is octal $now, not \$2A"

press alt+F4
kill -0 "$program" 2>/dev/null && xdotool windowclose "$window"
echo "one byte changed, as edited"
