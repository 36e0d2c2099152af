#!/usr/bin/env bash
# atlas_in_browser.sh CHROMIUM VELKO_CLI DEMO: writes the demo's atlas and opens pages of it in
# headless Chromium, straight from disk. There must be no message on the console, no request to
# anywhere but the site's own files, no link that leads nowhere, and no picture that stays empty. A
# probe that is put into a copy of each page tells what the browser made of it.
set -euo pipefail
chromium=$1
cli=$2
demo=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
site=$work/site
"$cli" -C "$demo" atlas demo.nes -o "$site" 2> "$work/atlas.log"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# open PAGE: the page's document once its scripts ran, in $work/dom; the browser's log in $work/log.
open_page() {
    HOME=$work timeout 60 "$chromium" --headless --no-sandbox --disable-gpu --no-first-run \
        --user-data-dir="$work/profile" --disable-background-networking --disable-component-update \
        --disable-sync --disable-extensions --host-resolver-rules="MAP * ~NOTFOUND" \
        --enable-logging=stderr --virtual-time-budget=5000 --dump-dom "file://$site/$1" \
        > "$work/dom" 2> "$work/log" || fail "the browser did not open $1"
}

# probe PAGE SCRIPT: the page with one more script at its end, which runs when all is loaded.
probe() {
    { sed '/<\/body>/,$d' "$site/$1"
      echo "<script>addEventListener('load', () => { $2 });</script></body></html>"
    } > "$site/probe_$1"
    open_page "probe_$1"
}

facts="for (const image of document.images) image.loading = 'eager';
setTimeout(() => {
    const lines = [];
    for (const image of document.images)
        if (!image.complete || !image.naturalWidth) lines.push('EMPTY ' + image.src);
    for (const entry of performance.getEntriesByType('resource')) lines.push('LOADED ' + entry.name);
    for (const link of document.querySelectorAll('[href]')) lines.push('LINK ' + link.href);
    lines.push('MAIN ' + document.querySelectorAll('main, nav, header, footer').length);
    lines.push('STYLE ' + getComputedStyle(document.querySelector('main')).maxWidth);
    document.body.innerText = lines.join('\\n');
}, 1000);"

check_page() {
    probe "$1" "$facts"
    ! grep -q CONSOLE "$work/log" || fail "$1: $(grep CONSOLE "$work/log")"
    sed 's/<br>/\n/g; s/<[^>]*>/\n/g; s/&amp;/\&/g' "$work/dom" > "$work/lines"
    ! grep -q '^EMPTY' "$work/lines" || fail "$1: $(grep '^EMPTY' "$work/lines")"
    grep -qx 'MAIN 4' "$work/lines" || fail "$1: landmarks are missing"
    grep -qx 'STYLE 1280px' "$work/lines" || fail "$1: the style sheet was not read"
    # The browser tells of what it asks the network for; files are not among that.
    ! grep -q '^LOADED' "$work/lines" || fail "$1: $(grep '^LOADED' "$work/lines")"
    local outside
    outside=$(grep '^LINK ' "$work/lines" | grep -vF " file://$site/" | grep -vFx 'LINK data:,' || true)
    [ -z "$outside" ] || fail "$1: links that leave the site: $outside"
    while read -r _ url; do
        local target=${url#"file://$site/"} id=
        [[ $target != *#* ]] || id=${target#*#}
        target=${target%%#*}
        [ -f "$site/$target" ] || fail "$1: $url leads nowhere"
        [ -z "$id" ] || grep -q " id=\"$id\"" "$site/${target#probe_}" || fail "$1: $url has no such place"
    done < <(grep -E '^LINK file' "$work/lines" || true)
    echo "$1: $(grep -c '^LINK' "$work/lines") links"
}

check_page index.html
check_page graph.html
check_page room_00.html
check_page room_20.html
check_page room_3e.html
