#!/usr/bin/env bash
# start_up_endings.sh VELKO DEMO: the ways out of start-up that tell the user something or nothing,
# each with its exit status.
set -euo pipefail
velko=$1
demo=$2
source "$(dirname "$0")/display.sh"
start_display
cp -r "$demo" "$work/game"

# Declining to choose a ROM: no message, status 0.
"$velko" -C "$work/game" 2> "$work/velko.log" &
program=$!
wait_for_window --name '^Choose a ROM file$'
press Escape
expect_end "$program" 0

# A ROM that cannot be read: one box, status 0.
"$velko" -C "$work/game" "$work/game/nowhere.nes" 2> "$work/velko.log" &
program=$!
wait_for_window --pid "$program"
kill -0 "$program" 2>/dev/null || fail "no box for an unreadable ROM"
press Return
expect_end "$program" 0

# A scalar that data.yaml should not hold, declined: status 49374, of which a shell sees 222.
echo "Rooms: 3" >> "$(echo "$work"/game/modules/*/data.yaml)"
"$velko" -C "$work/game" "$work/game/demo.nes" 2> "$work/velko.log" &
program=$!
wait_for_window --name '^Rooms$'
press Escape
expect_end "$program" 222
