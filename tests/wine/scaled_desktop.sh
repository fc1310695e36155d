#!/usr/bin/env bash
# Runs end-to-end test files on a desktop of another scale:
#
#   scaled_desktop.sh PERCENT FILE...
#
# The scale is that of the prefix (WINEPREFIX) and is put back afterwards. Uses the display and the
# tools of the run it is part of; without a held desktop it brings its own.
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/steps.sh
source scripts/wine_env.sh
[ $# -ge 2 ] || { echo "usage: scaled_desktop.sh PERCENT FILE..." >&2; exit 2; }
percent=$1
shift
held=${RAVELIN_HELD_DESKTOP:-}
key='HKCU\Control Panel\Desktop'

set_scale() {
    timeout -k 10 60 wine reg add "$key" /v LogPixels /t REG_DWORD /d $((96 * $1 / 100)) /f >/dev/null
}

# Programs learn the scale when they start, the desktop among them.
restart_desktop() {
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
    set_scale "$1"
    start_prefix
}

put_back() {
    if [ -n "$held" ]; then
        restart_desktop 100
    else
        set_scale 100 || true
        end_prefix
        end_display
    fi
}

source tests/wine/prefix.sh
[ -n "$held" ] || start_display
trap put_back EXIT
# A prefix that is not there yet is made at the usual scale.
[ -n "$held" ] || ensure_prefix
restart_desktop "$percent"
status=0
for file in "$@"; do
    echo "# $file at $percent %"
    RAVELIN_TEST_SCALE=$percent timeout -k 10 600 node --test "$file" || status=$?
done
exit "$status"
