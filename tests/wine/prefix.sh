# Source this file.
#
#   create_prefix PREFIX   makes a Wine prefix that says Windows 10; a moment when it is there

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
