#!/bin/sh
# Adds the chord diagrams of rising-sun by the program itself: make/chords.sh [the folder of quillon-cli]
set -e
cd "$(dirname "$0")/.."
cli="${1:+$1/}quillon-cli"
bar=0
set --
for chord in "A m" "C Maj" "D Maj" "F Maj" "A m" "C Maj" "E Maj" "E 7" \
             "A m" "C Maj" "D Maj" "F Maj" "A m" "E Maj" "A m" "E 7" "A m"; do
    set -- "$@" "$chord@0,$bar,0"
    bar=$((bar + 1))
done
"$cli" chords add rising-sun.json "$@" --out rising-sun.json
"$cli" convert rising-sun.json rising-sun.qlm
