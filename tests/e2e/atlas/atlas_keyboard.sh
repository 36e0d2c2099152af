#!/usr/bin/env bash
# atlas_keyboard.sh CHROMIUM VELKO_CLI DEMO: presses real keys in headless Chromium on pages of the
# demo's atlas: Tab must reach the skip link, the navigation and then the content in reading order,
# and the left and right arrow keys must turn the pages, unless they scroll a picture.
set -euo pipefail
chromium=$1
cli=$2
demo=$3
work=$(mktemp -d)
site=$work/site
browser=
trap '[ -z "$browser" ] || kill "$browser" 2> /dev/null || true; wait; rm -rf "$work"' EXIT
"$cli" -C "$demo" atlas demo.nes -o "$site" 2> "$work/atlas.log"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# The browser's own protocol: JSON texts that end in a zero byte, on its descriptors 3 and 4.
mkfifo "$work/commands" "$work/answers"
HOME=$work "$chromium" --headless --no-sandbox --disable-gpu --no-first-run \
    --user-data-dir="$work/profile" --disable-background-networking --disable-component-update \
    --disable-sync --disable-extensions --window-size=1000,800 --remote-debugging-pipe \
    3< "$work/commands" 4> "$work/answers" > "$work/log" 2>&1 &
browser=$!
exec 5> "$work/commands" 6< "$work/answers"

session=
number=0
# ask METHOD PARAMETERS: the answer in $answer.
ask() {
    number=$((number + 1))
    printf '{"id":%d,"method":"%s","params":%s%s}\0' "$number" "$1" "$2" \
        "${session:+,\"sessionId\":\"$session\"}" >&5
    while IFS= read -r -d '' -t 60 -u 6 answer; do
        [[ $answer != "{\"id\":$number,"* ]] || return 0
    done
    fail "the browser does not answer $1"
}

# evaluate SCRIPT: the text that it gives, which must hold no quotes, in $text.
evaluate() {
    ask Runtime.evaluate "{\"expression\":\"${1//$'\n'/ }\",\"returnByValue\":true}"
    [[ $answer =~ \"value\":\"([^\"]*)\" ]] || fail "$1: $answer"
    text=${BASH_REMATCH[1]}
}

# wait_for TITLE: until a page whose title begins so is there.
wait_for() {
    for _ in $(seq 200); do
        evaluate "document.readyState + ' ' + document.title"
        [[ $text != "complete $1"* ]] || return 0
        sleep 0.05
    done
    fail "$text instead of $1"
}

# open_page PAGE TITLE
open_page() {
    ask Page.navigate "{\"url\":\"file://$site/$1\"}"
    wait_for "$2"
}

# press KEY CODE
press() {
    local key="\"key\":\"$1\",\"code\":\"$1\",\"windowsVirtualKeyCode\":$2"
    ask Input.dispatchKeyEvent "{\"type\":\"rawKeyDown\",$key}"
    ask Input.dispatchKeyEvent "{\"type\":\"keyUp\",$key}"
}

# expect_focus TEXT: what Tab leads to, by its text or label without arrows; it must be in the window
# and show a ring.
expect_focus() {
    press Tab 9
    evaluate "(() => { const e = document.activeElement; const r = e.getBoundingClientRect();
        const shown = r.right > 0 && r.bottom > 0 && r.left < innerWidth && r.top < innerHeight;
        const ring = getComputedStyle(e).outlineStyle == 'solid';
        return (e.labels?.[0]?.innerText ?? e.getAttribute('aria-label') ?? e.innerText)
                .replace(/[^ -~]/g, '').trim()
            + (shown ? '' : ' out of sight') + (ring ? '' : ' without a ring'); })()"
    [ "$text" = "$1" ] || fail "Tab leads to \"$text\" instead of \"$1\""
}

ask Target.createTarget '{"url":"about:blank"}'
[[ $answer =~ \"targetId\":\"([0-9A-F]+)\" ]] || fail "$answer"
ask Target.attachToTarget "{\"targetId\":\"${BASH_REMATCH[1]}\",\"flatten\":true}"
[[ $answer =~ \"sessionId\":\"([0-9A-F]+)\" ]] || fail "$answer"
session=${BASH_REMATCH[1]}

open_page room_02.html "Room 02"
for stop in "Skip to the content" demo Rooms "Graph of rooms" "Room 01" "Room 03" Marks Names \
    "Map of room 2, Area 1: Clover Downs, the falls" "01 Area 1: Clover Downs, the brook" \
    "03 Area 1: Clover Downs, the old orchard" "Entrance 1" "Entrance 2" "Exit 1"; do
    expect_focus "$stop"
done
echo "Tab goes through a room's page in reading order"

open_page room_02.html "Room 02"
expect_focus "Skip to the content"
press Enter 13
expect_focus Marks
echo "the skip link skips the navigation"

open_page index.html "demo: atlas"
for stop in "Skip to the content" demo Rooms "Graph of rooms" Marks Names "Map of the overworld" \
    "Area 1"; do
    expect_focus "$stop"
done
open_page graph.html "Graph of rooms"
for stop in "Skip to the content" demo Rooms "Graph of rooms" "Graph of rooms" \
    "00 Area 1: Clover Downs, the gate"; do
    expect_focus "$stop"
done
echo "Tab goes through index and graph in reading order"

open_page room_02.html "Room 02"
press ArrowRight 39
wait_for "Room 03"
press ArrowLeft 37
wait_for "Room 02"
press ArrowLeft 37
wait_for "Room 01"
echo "the arrow keys turn the pages"

# The picture of room 20 is wider than the window.
open_page room_20.html "Room 20"
evaluate "document.querySelector('.scroll').focus(); ''"
press ArrowRight 39
for _ in $(seq 100); do
    evaluate "document.title + ' at ' + (document.querySelector('.scroll').scrollLeft > 0)"
    [[ $text != *true ]] || break
    sleep 0.05
done
[[ $text == "Room 20: "*" at true" ]] || fail "the right arrow does not scroll the picture: $text"
evaluate "document.activeElement.blur(); ''"
press ArrowRight 39
wait_for "Room 21"
echo "on a wide picture they scroll"
