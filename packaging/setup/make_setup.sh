#!/usr/bin/env bash
# make_setup.sh PRODUCT.NSH PROGRAM_FOLDER SETUP.EXE [OPTION...]: builds the setup program for what
# lies in the folder. PRODUCT.NSH is among the generated files of the build that the program comes
# from; further options are for makensis.
set -euo pipefail
[ $# -ge 3 ] || { echo "usage: make_setup.sh PRODUCT.NSH PROGRAM_FOLDER SETUP.EXE [OPTION...]" >&2; exit 2; }
product=$(realpath "$1") program=$(realpath "$2") out=$(realpath -m "$3")
shift 3
mkdir -p "$(dirname "$out")"
cd "$(dirname "${BASH_SOURCE[0]}")"

# The wizard's side, from the program's own icon.
drawings=$(mktemp -d)
trap 'rm -rf "$drawings"' EXIT
side="$drawings/side.bmp"
convert -size 164x314 gradient:'#1b4b6e'-'#0c2233' \( '../icons/ravelin.ico[8]' -resize 96x96 \) \
    -geometry +34+40 -composite -type truecolor "BMP3:$side"

makensis -V2 -WX -INPUTCHARSET UTF8 -DPRODUCT="$product" -DPROGRAM="$program" -DSIDE="$side" \
    -DOUT="$out" "$@" setup.nsi
