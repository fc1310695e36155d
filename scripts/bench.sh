#!/usr/bin/env bash
# ./dev bench: benchmarks, each beside a plain baseline of the same run. The whole output is kept in
# build/bench.txt.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh
source scripts/wine_env.sh

# By way of a file: the desktop's processes would hold a pipe for as long as they live.
windows_bench() {
    wine "$BUILD/windows-objects/$1.exe" >"$LOGS/$1.log"
    tr -d '\r' <"$LOGS/$1.log"
}

must 'install' scripts/install.sh
must 'page' build_page
must 'host benchmarks' build_preset host ravelin_bench
must 'windows program' build_windows
start_display
trap 'end_prefix; end_display' EXIT
must 'wine prefix' start_prefix

{
    echo
    echo '== Linux: portable half =='
    "$BUILD/host/ravelin_bench" --benchmark_counters_tabular=true 2>&1
    echo
    echo '== Wine: clicker period beside a bare loop of wait and two SendInput calls =='
    windows_bench clicker_bench
    echo
    echo '== Wine: playback lateness beside a bare loop of wait and SendInput =='
    windows_bench player_bench
    echo
    echo '== Wine: from process start to the first status poll, beside a bare view of one line =='
    node tests/bench/startup.mjs
} | tee "$BUILD/bench.txt"
