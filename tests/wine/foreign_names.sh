#!/usr/bin/env bash
# Runs end-to-end tests as a user whose name no single code page has, with the program in a folder of
# such a name: foreign_names.sh FILE... Uses the desktop that is held for it, else the project's
# prefix with a display and a desktop of its own.
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/steps.sh
source scripts/wine_env.sh
name='Żółć 田中'
# Without a locale of many scripts Wine cannot see the names of such files.
export LC_ALL=C.UTF-8

environment='HKCU\Volatile Environment'
usual=
give_back() {
    [ -z "$usual" ] || wine reg add "$environment" /v LOCALAPPDATA /d "$usual" /f >/dev/null 2>&1 || true
}

if [ -n "${RAVELIN_HELD_DESKTOP:-}" ]; then
    trap give_back EXIT
else
    start_display
    trap 'give_back; end_prefix; end_display' EXIT
    start_prefix
fi
usual=$(wine reg query "$environment" /v LOCALAPPDATA | sed -nE 's/^ +LOCALAPPDATA +REG_SZ +([^\r]*)\r?$/\1/p')
[ -n "$usual" ] || { echo "foreign_names.sh: the prefix names no folder for a user's data" >&2; exit 2; }

export RAVELIN_TEST_USER="$name"
mkdir -p "$WINEPREFIX/drive_c/users/$name/AppData/Local"
wine reg add "$environment" /v LOCALAPPDATA /d "C:\\users\\$name\\AppData\\Local" /f >/dev/null

export RAVELIN_TEST_PROGRAM_FOLDER="$BUILD/$name/Ravelin"
rm -rf "${BUILD:?}/$name"
mkdir -p "$BUILD/$name"
cp -r "$BUILD/windows" "$RAVELIN_TEST_PROGRAM_FOLDER"

users() { find "$WINEPREFIX/drive_c/users" -mindepth 1 -maxdepth 1 -printf '%f\n' | sort; }
before=$(users)
status=0
for file in "$@"; do
    echo "# $file"
    timeout -k 10 600 node --test "$file" || status=$?
done
if [ "$(users)" != "$before" ]; then
    printf 'somebody wrote under another name; the users are now\n%s\n' "$(users)"
    status=1
fi
exit "$status"
