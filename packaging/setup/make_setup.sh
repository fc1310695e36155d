#!/usr/bin/env bash
# make_setup.sh PRODUCT.NSH PLUGIN_FOLDER PROGRAM_FOLDER SETUP.EXE [OPTION...]: builds the setup
# program for the shipped files in the folder. PRODUCT.NSH is among the generated files of the build
# that the program comes from, and so is the plug-in; further options are for makensis.
set -euo pipefail
if [ $# -lt 4 ]; then
    echo "usage: make_setup.sh PRODUCT.NSH PLUGIN_FOLDER PROGRAM_FOLDER SETUP.EXE [OPTION...]" >&2
    exit 2
fi
product=$(realpath "$1") plugin=$(realpath "$2") program=$(realpath "$3") out=$(realpath -m "$4")
shift 4
mkdir -p "$(dirname "$out")"
cd "$(dirname "${BASH_SOURCE[0]}")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

shipped() { grep -v '^#' ../files.txt; }

# Calls of a macro for every shipped file and, the inner ones first, every folder.
files="$work/files.nsh"
{
    echo '!macro ForEachFile action'
    while read -r file; do
        folder=$(dirname "$file")
        [ "$folder" = . ] && folder= || folder="${folder//\//\\}\\"
        printf '!insertmacro ${action} "%s" "%s"\n' "$folder" "$(basename "$file")"
    done < <(shipped)
    echo '!macroend'
    echo '!macro ForEachFolder action'
    shipped | while read -r file; do
        while file=$(dirname "$file") && [ "$file" != . ]; do echo "$file"; done
    done | sort -ru | while read -r folder; do
        printf '!insertmacro ${action} "%s"\n' "${folder//\//\\}"
    done
    echo '!macroend'
} >"$files"

kilobytes=$(shipped | (cd "$program" && xargs du -c --apparent-size -k) | tail -n 1 | cut -f 1)

# The wizard's side, from the program's own icon.
side="$work/side.bmp"
convert -size 164x314 gradient:'#1b4b6e'-'#0c2233' \( '../icons/ravelin.ico[8]' -resize 96x96 \) \
    -geometry +34+40 -composite -type truecolor "BMP3:$side"

makensis -V2 -WX -INPUTCHARSET UTF8 -DPRODUCT="$product" -DFILES="$files" -DPLUGIN="$plugin" \
    -DPROGRAM="$program" -DKILOBYTES="$kilobytes" -DSIDE="$side" -DOUT="$out" "$@" setup.nsi
