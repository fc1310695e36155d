#!/usr/bin/env bash
# ./dev lint: the formatting of every source, then clang-tidy over the portable ones. A file that
# passed is not looked at again until it, a header or the configuration changes.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh

check_tidy() {
    local headers source stamp pending=()
    [ -f "$BUILD/host/compile_commands.json" ] || build_preset host ravelin_core
    mkdir -p "$BUILD/tidy"
    headers=$(git ls-files -co --exclude-standard '*.h' .clang-tidy | xargs cat | sha256sum)
    while read -r source; do
        stamp="$BUILD/tidy/$(printf '%s%s' "$headers" "$(cat "$source")" | sha256sum | cut -c1-40)"
        [ -f "$stamp" ] || pending+=("$source" "$stamp")
    done < <(git ls-files -co --exclude-standard {support,input,persistence,scanner,themes,updater,app}'/*.cpp' |
        grep -vE '_win32\.cpp$|/ravelin_main\.cpp$')
    [ "${#pending[@]}" -eq 0 ] && return
    printf '%s\0' "${pending[@]}" |
        xargs -0 -n 2 -P "$JOBS" sh -c 'clang-tidy -p "$0" --quiet --extra-arg=-Wno-unknown-warning-option "$1" && : >"$2"' "$BUILD/host"
}

run_format_step
run_step 'tidy' check_tidy || true
summary
