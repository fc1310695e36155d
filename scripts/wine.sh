#!/usr/bin/env bash
# ./dev wine PROGRAM [ARGS]: runs a Windows program in the project's prefix, with its output and
# exit code passed through. A program that shows windows needs DISPLAY.
set -euo pipefail
source scripts/steps.sh
source scripts/wine_env.sh
[ $# -gt 0 ] || { echo "usage: ./dev wine PROGRAM [ARGS]" >&2; exit 2; }
[ -f "$WINEPREFIX/system.reg" ] || ensure_prefix >"$LOGS/wine-prefix.log" 2>&1
if [ -n "${DISPLAY:-}" ]; then exec wine "$@"; fi
start_display
trap end_display EXIT
wine "$@"
