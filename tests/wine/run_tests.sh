#!/usr/bin/env bash
# Runs the tests of the stand-in WebView2 runtime: run_tests.sh [WORD]. Uses the desktop that is held
# for it, else the project's prefix with a display and a desktop of its own. One line a test, then
# "N passed, N failed".
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/steps.sh
source scripts/wine_env.sh
[ -f "$BUILD/windows-objects/tests/wine/browser_host.exe" ] ||
    { echo "run_tests.sh: the Windows preset is not built" >&2; exit 2; }
# The tools of the end-to-end tests start programs from the folder of the finished program.
mkdir -p "$BUILD/windows"
cp -u packaging/node_modules/webview-bun/build/libwebview.dll "$BUILD/windows-objects/tests/wine/"

if [ -n "${RAVELIN_HELD_DESKTOP:-}" ]; then
    tests/wine/install_runtime.sh "$WINEPREFIX" "$BUILD/windows-objects"
else
    start_display
    trap 'end_prefix; end_display' EXIT
    start_prefix
fi
node tests/wine/run_tests.mjs "$@"
