# Sourced by the tests of the built program: a display of their own, a scratch folder, xdotool.

work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# Starts Xvfb on a free display and points everything at it.
start_display() {
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3> "$work/display" 2> "$work/xvfb.log" &
    for _ in $(seq 100); do
        [ -s "$work/display" ] && break
        sleep 0.1
    done
    [ -s "$work/display" ] || fail "Xvfb did not start: $(cat "$work/xvfb.log")"
    DISPLAY=:$(cat "$work/display")
    chmod 700 "$work"
    export DISPLAY QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$work
}

# wait_for_window --name PATTERN or --pid PROCESS: waits until such a window shows, and gives it
# the focus.
wait_for_window() {
    local window
    window=$(timeout 60 xdotool search --sync --onlyvisible "$1" "$2" | head -n 1) \
        || fail "no window $*: $(cat "$work"/*.log)"
    xdotool windowfocus --sync "$window"
    sleep 0.5
}

press() {
    xdotool key --delay 60 "$@"
    sleep 0.5
}

# expect_end PROGRAM STATUS: the program ends by itself, with this status.
expect_end() {
    local status=0
    for _ in $(seq 100); do
        kill -0 "$1" 2>/dev/null || break
        sleep 0.1
    done
    kill -0 "$1" 2>/dev/null && fail "the program did not end"
    wait "$1" || status=$?
    [ "$status" -eq "$2" ] || fail "the program ended with $status, not $2: $(cat "$work/velko.log")"
}
