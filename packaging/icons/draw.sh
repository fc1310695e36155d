#!/bin/sh
# Draws the program's icons from large.svg and small.svg: run it after changing one of them.
set -eu
cd "$(dirname "$0")"
drawings=$(mktemp -d)
trap 'rm -rf "$drawings"' EXIT

# draw DRAWING GRID SIZE: drawn much larger and averaged down, so that edges on the grid stay sharp.
draw() {
    convert -background none -density $((96 * $3 * 8 / $2)) "$1.svg" \
        -filter Box -resize "$3x$3!" -depth 8 "$drawings/$1-$3.png"
    printf '%s/%s-%s.png\n' "$drawings" "$1" "$3"
}

# The drawings of one icon, smallest first; each prints its file.
small() { for size in "$@"; do draw small 16 "$size"; done; }
large() { for size in "$@"; do draw large 32 "$size"; done; }

# The program's own icon also stands for it in folders, so it comes in every size.
# shellcheck disable=SC2046
convert $(small 16 20 24; large 32 40 48 64 96 128 256) ravelin.ico
# shellcheck disable=SC2046
convert $(small 16 20 24 32) ravelin-small.ico
