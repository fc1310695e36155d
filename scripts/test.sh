#!/usr/bin/env bash
# ./dev test: everything that proves the program, from installing to end-to-end runs; one summary at
# the end. ./dev test STEP ... runs the steps whose names contain one of the words.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh
source scripts/wine_env.sh
words=("$@")

# wanted NAME: no words were given, or one fits.
wanted() {
    local word
    [ "${#words[@]}" -gt 0 ] || return 0
    for word in "${words[@]}"; do
        [[ "$1" == *"$word"* ]] && return 0
    done
    return 1
}

step() { ! wanted "$1" || run_step "$@" || true; }
beside() { ! wanted "$1" || begin_step "$@"; }
join() { [ -z "${beside:-}" ] || end_step || true; }

page_unit_tests() { (cd ui && npm test); }
page_browser_tests() { (cd ui && npm run test:page); }
unit_tests_asan() { build_preset asan ravelin_unit_tests && "$BUILD/asan/ravelin_unit_tests" --gtest_brief=1; }
thread_tests_tsan() { build_preset tsan ravelin_thread_tests && "$BUILD/tsan/ravelin_thread_tests" --gtest_brief=1; }
host_programs() { build_preset host; }
unit_tests_wine() { timeout -k 10 600 wine "$BUILD/windows-objects/ravelin_unit_tests.exe" --gtest_brief=1; }
# These tests bring a desktop of their own, on a display of their own.
windows_tests() { env -u DISPLAY tests/windows/run_tests.sh; }
browser_tests() { timeout -k 10 600 tests/wine/run_tests.sh; }
# Each file with a limit of its own, so that a program that hangs names itself and ends nothing else.
end_to_end_tests() {
    local file status=0
    for file in tests/e2e/*_test.mjs; do
        echo "# $file"
        timeout -k 10 600 node --test "$file" || status=$?
    done
    return "$status"
}
foreign_name_tests() { tests/wine/foreign_names.sh tests/e2e/{restart,macro,panels}_test.mjs; }

# What depends on places and sizes, once more where a pixel of the page is not one of the screen.
scaled_end_to_end_tests() {
    tests/wine/scaled_desktop.sh 150 tests/e2e/{window_place,opening,resize}_test.mjs
}

rm -rf "$BUILD/screenshots/failures"
must 'install' scripts/install.sh
# One display and one desktop for the whole run.
start_display
trap 'drop_step; end_prefix; end_display' EXIT
step 'page' build_page
step 'page unit tests' page_unit_tests
step 'page browser tests' page_browser_tests
step 'unit tests (asan, ubsan)' unit_tests_asan
step 'thread tests (tsan)' thread_tests_tsan
step 'fuzz targets' scripts/fuzz.sh --briefly
step 'host programs' host_programs
# Waits more than it works.
beside 'wine prefixes' tests/wine/create_prefixes.sh
step 'windows program' build_windows
join
for name in 'wine desktop' 'browser tests' 'unit tests (wine)' 'windows tests' 'end-to-end tests' 'end-to-end tests, 150 %'; do
    if wanted "$name"; then
        run_step 'wine desktop' start_prefix || true
        break
    fi
done
# Mostly waiting, as are those after it, and with a prefix and a display of its own.
beside 'update tests' timeout -k 10 1800 tests/update/run_tests.sh
step 'browser tests' browser_tests
step 'unit tests (wine)' unit_tests_wine
step 'windows tests' windows_tests
join
step 'end-to-end tests' end_to_end_tests
step 'end-to-end tests, foreign names' foreign_name_tests
step 'end-to-end tests, two monitors' tests/wine/two_monitors.sh
step 'end-to-end tests, 150 %' scaled_end_to_end_tests
! wanted 'format' || run_format_step
summary
