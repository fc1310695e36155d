# Source this file.
#
#   create_prefix PREFIX   makes a Wine prefix that says Windows 10; a moment when it is there

create_prefix() {
    local prefix=$1
    if [ -e "$prefix/.ready" ]; then return 0; fi
    mkdir -p "$prefix"
    # Wine's own .NET and HTML engines are not needed and would ask to be downloaded.
    (
        export WINEPREFIX=$prefix WINEARCH=win64 WINEDEBUG=-all
        export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe='
        wine wineboot -i && wine winecfg -v win10 && wineserver -w
    ) >"$prefix/creation.log" 2>&1 || {
        echo "cannot create the Wine prefix $prefix; see $prefix/creation.log" >&2
        return 1
    }
    touch "$prefix/.ready"
}
