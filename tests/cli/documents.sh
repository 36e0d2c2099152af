#!/usr/bin/env bash
# Usage: documents.sh DOCS
# The manual page and the completions in the programs that read them: roff finds no fault with the
# page, and each shell completes verbs and options with its script.
set -euo pipefail
cd "$1"

fail() {
    echo "$*" >&2
    exit 1
}

faults=$(groff -man -Tutf8 -ww velko-cli.1 2>&1 > /dev/null)
[ -z "$faults" ] || fail "velko-cli.1: $faults"

# complete WORD...: what bash offers for the last word.
source ./velko-cli.bash
complete_in_bash() {
    COMP_WORDS=(velko-cli "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _velko_cli
    echo "${COMPREPLY[*]}"
}
expect() {
    [ "$2" = "$3" ] || fail "$1: expected \"$2\", got \"$3\""
}
expect "bash, verb" "info" "$(complete_in_bash inf)"
expect "bash, verb behind -C" "info" "$(complete_in_bash -C module inf)"
expect "bash, value of -C" "" "$(complete_in_bash -C inf)"
expect "bash, option of a verb" "--json" "$(complete_in_bash -C somewhere info demo.nes --j)"
expect "bash, option of the program" "--version" "$(complete_in_bash --v)"
expect "bash, file" "" "$(complete_in_bash info dem)"

complete_in_fish() {
    fish --no-config -c "source ./velko-cli.fish; complete -C '$1'" | cut -f 1 | tr '\n' ' '
}
expect "fish, verb" "info " "$(complete_in_fish 'velko-cli inf')"
expect "fish, option of a verb" "--json " "$(complete_in_fish 'velko-cli info --j')"
expect "fish, option of the program" "--version " "$(complete_in_fish 'velko-cli --v')"
expect "fish, no option of the program behind a verb" "" "$(complete_in_fish 'velko-cli info --v')"
expect "fish, file" "velko-cli.1 velko-cli.bash velko-cli.fish " \
    "$(complete_in_fish 'velko-cli info velko-cli.')"

zsh -n ./_velko-cli || fail "zsh finds a fault in _velko-cli"
