#!/usr/bin/env bash
# Runs the tests of the Windows half on a virtual desktop of their own; the arguments go to
# GoogleTest. Uses DISPLAY and WINEPREFIX where they are set, else a display and the project's
# prefix of its own. Ends with GoogleTest's summary and exit code.
set -euo pipefail
cd "$(dirname "$0")/../.."
program="${RAVELIN_WINDOWS_TESTS:-build/windows-objects/ravelin_windows_tests.exe}"
program=$(realpath "$program")
[ -f "$program" ] || { echo "run_tests.sh: $program is not built" >&2; exit 2; }
for tool in wine xdotool; do
    command -v "$tool" >/dev/null || { echo "run_tests.sh: $tool is not installed" >&2; exit 2; }
done

export WINEPREFIX="${WINEPREFIX:-$PWD/build/wineprefix}" WINEDEBUG="${WINEDEBUG:--all}"
results=$(mktemp -d)
display_server=
cleanup() {
    [ -z "$display_server" ] || kill "$display_server" 2>/dev/null || true
    rm -rf "$results"
}
trap cleanup EXIT

if [ -z "${DISPLAY:-}" ]; then
    mkfifo "$results/display"
    Xvfb -displayfd 3 -screen 0 1280x1000x24 -nolisten tcp >/dev/null 2>&1 3>"$results/display" &
    display_server=$!
    read -r number <"$results/display"
    export DISPLAY=":$number"
fi
if [ ! -f "$WINEPREFIX/system.reg" ]; then
    mkdir -p "$WINEPREFIX"
    wineboot -i >/dev/null 2>&1
    wine winecfg -v win10 >/dev/null 2>&1
fi

export RAVELIN_TEST_RESULTS="Z:${results//\//\\}"
RAVELIN_XDOTOOL=$(command -v xdotool)
export RAVELIN_XDOTOOL
# The desktop takes the whole display, so that both count pixels from the same corner.
size=$(xdotool getdisplaygeometry | tr ' ' x)
: >"$results/output.txt"
timeout "${RAVELIN_TESTS_TIMEOUT:-600}" \
    wine explorer "/desktop=ravelin-tests,$size" "Z:${program//\//\\}" "$@" \
    >/dev/null 2>&1 &
tests=$!
tail -n +1 -f --pid="$tests" "$results/output.txt"
wait "$tests" || true

if [ ! -s "$results/exit_code.txt" ]; then
    echo "run_tests.sh: the tests ended without a result" >&2
    exit 1
fi
exit "$(tr -dc '0-9' <"$results/exit_code.txt")"
