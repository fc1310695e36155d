#!/usr/bin/env bash
# Runs the tests of the stand-in WebView2 runtime: run_tests.sh [WORD]. Uses DISPLAY and WINEPREFIX
# where they are set, else a display and the project's prefix of its own. One line a test, then
# "N passed, N failed".
set -euo pipefail
cd "$(dirname "$0")/../.."
built=$PWD/build/windows-objects
[ -f "$built/tests/wine/browser_host.exe" ] || { echo "run_tests.sh: the Windows preset is not built" >&2; exit 2; }
export WINEPREFIX="${WINEPREFIX:-$PWD/build/wineprefix}" WINEDEBUG="${WINEDEBUG:--all}"

source tests/wine/prefix.sh
create_prefix "$WINEPREFIX"
tests/wine/install_runtime.sh "$WINEPREFIX" "$built"
# The tools of the end-to-end tests start programs from the folder of the finished program.
mkdir -p build/windows
cp -u packaging/node_modules/webview-bun/build/libwebview.dll "$built/tests/wine/"

if [ -n "${DISPLAY:-}" ]; then exec node tests/wine/run_tests.mjs "$@"; fi
display=$(mktemp -u)
mkfifo "$display"
Xvfb -displayfd 3 -screen 0 1280x1000x24 -nolisten tcp >/dev/null 2>&1 3>"$display" &
server=$!
trap 'wineserver -k 2>/dev/null; kill "$server"; rm -f "$display"' EXIT
read -r number <"$display"
DISPLAY=":$number" node tests/wine/run_tests.mjs "$@"
