# Source this file.
#
#   create_prefix PREFIX      makes a Wine prefix that says Windows 10; a moment when it is there
#   hold_desktop TOOLS LOG    gives the prefix of WINEPREFIX one desktop on DISPLAY that stays until
#                             its server ends; TOOLS is the build folder of the Windows preset
#   release_desktop           programs stand on DISPLAY by themselves again

create_prefix() {
    local prefix=$1
    local made=$prefix/.created-2
    if [ -e "$made" ]; then return 0; fi
    mkdir -p "$prefix"
    # Wine's own .NET and HTML engines are not needed and would ask to be downloaded.
    (
        export WINEPREFIX=$prefix WINEARCH=win64 WINEDEBUG=-all
        export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe='
        wine wineboot -i && wine winecfg -v win10 &&
            # A program that crashes ends, instead of waiting for somebody to press a button.
            wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
            wineserver -w
    ) >"$prefix/creation.log" 2>&1 || {
        echo "cannot create the Wine prefix $prefix; see $prefix/creation.log" >&2
        return 1
    }
    touch "$made"
}

desktop_key='HKCU\Software\Wine\Explorer'

# Every program started from here on shares the desktop, so that focus and hooks work across them. A
# program that stays on it keeps it: Wine ends a desktop a second after its last program, and what
# is started in that moment finds neither the old one nor a new one and fails in odd ways. The
# desktop's own process starts that program. One that had to bring the desktop about found it
# unfinished now and then, and got no window. What starts it may end before it has got so far.
hold_desktop() {
    local tools=$1 log=$2 note deadline=$((SECONDS + 60))
    note=$(mktemp)
    wine reg add "$desktop_key" /v Desktop /d ravelin /f >"$log" 2>&1
    wine reg add "$desktop_key\Desktops" /v ravelin /d 1280x1000 /f >>"$log" 2>&1
    wine explorer /desktop=ravelin,1280x1000 "$(windows_path "$tools/window_tool.exe")" \
        stay "$(windows_path "$note")" >>"$log" 2>&1 </dev/null &
    disown
    until [ -s "$note" ]; do
        if [ $SECONDS -gt $deadline ]; then
            echo "cannot hold a desktop; see $log" >&2
            return 1
        fi
        sleep 0.05
    done
    rm -f "$note"
    export RAVELIN_HELD_DESKTOP=$DISPLAY
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

release_desktop() {
    timeout 20 wine reg delete "$desktop_key" /f >/dev/null 2>&1 || true
}
