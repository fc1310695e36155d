# The project's own Wine prefix and a display for it. Sourced after steps.sh.
export WINEPREFIX="$BUILD/wineprefix"
export WINEDEBUG="${WINEDEBUG:--all}"
# No prompts for engines that the program does not need.
export WINEDLLOVERRIDES="mscoree=;mshtml="

# ensure_prefix: makes the prefix once, with the browser runtime registered.
ensure_prefix() {
    source tests/wine/prefix.sh
    create_prefix "$WINEPREFIX"
    tests/wine/install_runtime.sh "$WINEPREFIX" "$BUILD/windows-objects"
}

# start_prefix: the same, with a desktop on DISPLAY that stays until end_prefix.
start_prefix() {
    ensure_prefix
    hold_desktop "$BUILD/windows-objects" "$LOGS/desktop-${WINEPREFIX##*/}.log"
}

# start_display [OPTION...]: a virtual display for this script and what it starts, until end_display.
# RAVELIN_SCREEN is its size, where that is not the usual one.
display_server=
start_display() {
    local pipe number
    pipe=$(mktemp -u)
    mkfifo "$pipe"
    Xvfb -displayfd 3 -screen 0 "${RAVELIN_SCREEN:-1280x1000x24}" -nolisten tcp "$@" >/dev/null 2>&1 3>"$pipe" &
    display_server=$!
    read -r number <"$pipe"
    rm -f "$pipe"
    export DISPLAY=":$number"
}

end_display() {
    kill "$display_server" 2>/dev/null || true
    wait "$display_server" 2>/dev/null || true
}

end_prefix() {
    [ -z "${RAVELIN_HELD_DESKTOP:-}" ] || release_desktop
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
}
