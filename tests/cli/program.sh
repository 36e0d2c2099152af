#!/usr/bin/env bash
# Usage: program.sh VELKO_CLI DEMO
# The built program itself: its words, its streams and its exit status.
set -euo pipefail
program=$1
demo=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# expect STATUS OUT ERR ARGUMENT...: the status, and the first lines of the two streams.
expect() {
    local status=0
    "$program" "${@:4}" > "$work/out" 2> "$work/err" || status=$?
    local got="$status|$(head -n 1 "$work/out")|$(cat "$work/err")"
    [ "$got" = "$1|$2|$3" ] || {
        echo "velko-cli ${*:4}: expected \"$1|$2|$3\", got \"$got\"" >&2
        exit 1
    }
}

expect 0 "velko-cli 0.1.0" "" --version
expect 0 "size: 262160 bytes, 16 banks of 16 KB" "" -C "$demo" info demo.nes
expect 2 "" "velko-cli: no verb given (see velko-cli --help)"
expect 2 "" "velko-cli: lost.nes: cannot be read, or is empty" -C "$demo" info lost.nes

mkdir "$work/module"
echo "Rooms: 3" > "$work/module/data.yaml"
expect 1 "module/data.yaml:1:1: unknown: \"Rooms\" is neither key nor value; did you mean rooms?" "" \
    -C "$work" module module

# The folder that it is started in is the work folder.
(cd "$demo" && expect 0 "size: 262160 bytes, 16 banks of 16 KB" "" info demo.nes)

# A full disk is no success.
if [ -w /dev/full ]; then
    status=0
    "$program" -C "$demo" info demo.nes > /dev/full 2> "$work/err" || status=$?
    [ "$status|$(cat "$work/err")" = "2|velko-cli: cannot write to standard output" ] || {
        echo "full disk: $status, $(cat "$work/err")" >&2
        exit 1
    }
fi

# A verb that cannot write its output to the end says which file, and leaves neither a part of it
# nor another file behind. Files may have 1 KB here: less than each of these outputs.
full_disk() {
    local file=$1 status=0
    rm -rf "$work/full"
    mkdir "$work/full"
    (ulimit -f 1 && exec "$program" -C "$demo" "${@:2}") > "$work/out" 2> "$work/err" || status=$?
    [ "$status|$(cat "$work/err")" = "2|velko-cli: $work/full/$file: cannot be written" ] || {
        echo "full disk: ${*:2}: $status, $(cat "$work/err")" >&2
        exit 1
    }
    [ -z "$(find "$work/full" -type f)" ] || {
        echo "full disk: ${*:2} left $(find "$work/full" -type f)" >&2
        exit 1
    }
}
cut=$work/cut.nes
head -c 100000 "$demo/demo.nes" > "$cut"
"$program" -C "$demo" patch make "$cut" demo.nes -o "$work/longer.bps"
full_disk out.nes data demo.nes join --kind palette -o "$work/full/out.nes"
full_disk out.nes set demo.nes room.0.music 1 -o "$work/full/out.nes"
full_disk out.png render demo.nes --room 20 -o "$work/full/out.png"
full_disk out.bps patch make "$cut" demo.nes -o "$work/full/out.bps"
full_disk out.nes patch apply "$cut" "$work/longer.bps" -o "$work/full/out.nes"
full_disk room_00.png render demo.nes --all -o "$work/full"
full_disk overworld.png atlas demo.nes -o "$work/full"
