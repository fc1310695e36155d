#!/bin/bash
# Installs the stand-in WebView2 runtime into a Wine prefix, so that the webview library finds it:
#
#   install_runtime.sh PREFIX BUILD_DIR
#
# BUILD_DIR is the build folder of the Windows preset. Installing again replaces the files.
set -euo pipefail
if [ $# != 2 ]; then
    echo "usage: install_runtime.sh PREFIX BUILD_DIR" >&2
    exit 2
fi
prefix=$(cd "$1" && pwd)
built=$2/tests/wine
# Loaders ask for a version whose third number is at least 1150.
version=120.0.2000.0
folder=$prefix/drive_c/ravelin-test-runtime/$version
key='HKLM\SOFTWARE\Microsoft\EdgeUpdate\ClientState\{F3017226-FE2A-4295-8BDF-00C3A9A7E4C5}'

mkdir -p "$folder/EBWebView/x64"
# Moved into place, because running programs may have the old files open.
for file in EmbeddedBrowserWebView.dll browser_keeper.sh run_below_wine.exe; do
    if cmp -s "$built/$file" "$folder/EBWebView/x64/$file"; then continue; fi
    cp "$built/$file" "$folder/EBWebView/x64/.$file.new"
    mv "$folder/EBWebView/x64/.$file.new" "$folder/EBWebView/x64/$file"
done

# In place of Wine's, so that tests see what becomes of cloaks.
if ! cmp -s "$built/dwmapi.dll" "$prefix/drive_c/windows/system32/dwmapi.dll"; then
    cp "$built/dwmapi.dll" "$prefix/drive_c/windows/system32/.dwmapi.new"
    mv "$prefix/drive_c/windows/system32/.dwmapi.new" "$prefix/drive_c/windows/system32/dwmapi.dll"
fi
if ! grep -qs '^"dwmapi"="native,builtin"' "$prefix/user.reg"; then
    WINEPREFIX=$prefix WINEDEBUG=-all wine reg add 'HKCU\Software\Wine\DllOverrides' /f \
        /v dwmapi /d native,builtin >/dev/null
fi
if ! grep -qsF "ravelin-test-runtime\\\\$version" "$prefix/system.reg"; then
    WINEPREFIX=$prefix WINEDEBUG=-all wine reg add "$key" /reg:32 /f \
        /v EBWebView /d "C:\\ravelin-test-runtime\\$version" >/dev/null
fi
