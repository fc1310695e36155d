#!/usr/bin/env bash
# ./dev run: shows the program on the display there is; without one takes a guided tour with real
# input on a virtual display, prints what it measured and leaves screenshots.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh
source scripts/wine_env.sh

must 'install' scripts/install.sh
must 'page' build_page
must 'windows program' build_windows
if [ -n "${DISPLAY:-}" ]; then
    must 'wine prefix' ensure_prefix
    release_desktop
    echo
    echo 'Ravelin is on your display. Close its window to come back here.'
    cd "$BUILD/windows"
    exec wine Ravelin.exe "$@"
fi
start_display
trap 'end_prefix; end_display' EXIT
must 'wine prefix' start_prefix
echo
node tests/e2e/tour.mjs
