#!/usr/bin/env bash
# make_setup.sh PRODUCT.NSH PROGRAM_FOLDER SETUP.EXE: builds the setup program for what lies in the
# folder. PRODUCT.NSH is among the generated files of the build that the program comes from.
set -euo pipefail
[ $# -eq 3 ] || { echo "usage: make_setup.sh PRODUCT.NSH PROGRAM_FOLDER SETUP.EXE" >&2; exit 2; }
product=$(realpath "$1") program=$(realpath "$2") out=$(realpath -m "$3")
mkdir -p "$(dirname "$out")"
cd "$(dirname "${BASH_SOURCE[0]}")"
makensis -V2 -WX -INPUTCHARSET UTF8 -DPRODUCT="$product" -DPROGRAM="$program" -DOUT="$out" setup.nsi
