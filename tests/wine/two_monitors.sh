#!/usr/bin/env bash
# Runs the tests of a desktop with two monitors, the second left of the primary one and shorter:
# two_monitors.sh. With a display and a prefix of its own: Wine sees the monitors of the display only
# without a virtual desktop. No window manager runs there.
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/steps.sh
source scripts/wine_env.sh
export WINEPREFIX="$BUILD/wineprefix-monitors"
unset RAVELIN_HELD_DESKTOP

for tool in xrandr xdotool Xvfb; do
    command -v "$tool" >/dev/null || { echo "two_monitors.sh: $tool is not installed" >&2; exit 2; }
done
# The same screen when its last program is gone: a reset would forget the monitors.
RAVELIN_SCREEN=2480x1000x24 start_display -noreset +extension RANDR
trap 'end_prefix; end_display' EXIT
xrandr --setmonitor '*main' 1280/320x1000/250+1200+0 screen
xrandr --setmonitor left 1200/300x800/200+0+0 none

ensure_prefix
# The newer way of asking the display for its monitors finds one only.
wine reg add 'HKCU\Software\Wine\X11 Driver' /v UseXRandR /d N /f >/dev/null
# Without a window manager nobody but Wine can move, focus and maximise windows: it must take all of it
# on itself.
wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null
wineserver -k || true
wineserver -w || true

# A program that stays keeps the desktop, as in every other run.
note=$(mktemp)
wine "$(windows_path "$BUILD/windows-objects/window_tool.exe")" stay "$(windows_path "$note")" \
    >"$LOGS/desktop-${WINEPREFIX##*/}.log" 2>&1 </dev/null &
deadline=$((SECONDS + 60))
until [ -s "$note" ]; do
    [ $SECONDS -le $deadline ] || { echo "two_monitors.sh: no desktop came" >&2; exit 2; }
    sleep 0.05
done
rm -f "$note"
timeout -k 10 600 node --test tests/e2e/two_monitors.mjs
