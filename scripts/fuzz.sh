#!/usr/bin/env bash
# ./dev fuzz [SECONDS]: every fuzz target for that long (60 s), its corpus kept in build/corpus.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh
seconds="${1:-60}"
targets=()
for source in tests/fuzz/*_fuzz.cpp; do targets+=("$(basename "$source" .cpp)"); done
run_step 'fuzz targets' build_preset fuzz "${targets[@]}" || { summary; exit 1; }
for source in tests/fuzz/*_fuzz.cpp; do
    name=$(basename "$source" .cpp)
    mkdir -p "$BUILD/corpus/$name"
    seeds=()
    [ -d "tests/fuzz/seeds/$name" ] && seeds=("tests/fuzz/seeds/$name")
    run_step "$name" "$BUILD/fuzz/$name" -max_total_time="$seconds" -timeout=20 -print_final_stats=1 \
        -artifact_prefix="$BUILD/corpus/$name-" "$BUILD/corpus/$name" "${seeds[@]}" || true
done
summary
