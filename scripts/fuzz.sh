#!/usr/bin/env bash
# ./dev fuzz [SECONDS]: every fuzz target for that long (60 s), its corpus kept in build/corpus.
# fuzz.sh --briefly: every target replays its seeds and goes on from there for 2 s, the same way
# each time; what fails is named with its log.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh
targets=()
for source in tests/fuzz/*_fuzz.cpp; do targets+=("$(basename "$source" .cpp)"); done

# run_target NAME CORPUS OPTION...: explores from the corpus and the seeds.
run_target() {
    local name="$1" corpus="$2"
    shift 2
    mkdir -p "$corpus"
    "$BUILD/fuzz/$name" -timeout=20 -print_final_stats=1 "$@" \
        -artifact_prefix="$BUILD/corpus/$name-" "$corpus" "tests/fuzz/seeds/$name"
}

run_briefly() {
    local name="$1" log="$BUILD/logs/fuzz-$1.log" corpus status=0
    corpus=$(mktemp -d)
    run_target "$name" "$corpus" -seed=1 -max_total_time=2 >"$log" 2>&1 || status=$?
    rm -rf "$corpus"
    [ "$status" -eq 0 ] || printf '%s failed:\n%s\n' "$name" "$(tail -n 30 "$log")"
    return "$status"
}

if [ "${1:-}" = --briefly ]; then
    build_preset fuzz "${targets[@]}"
    mkdir -p "$BUILD/corpus"
    export BUILD
    export -f run_target run_briefly
    printf '%s\n' "${targets[@]}" | xargs -P "$JOBS" -I {} bash -c 'run_briefly {}'
    echo "${#targets[@]} passed, 0 failed"
    exit
fi

seconds="${1:-60}"
run_step 'fuzz targets' build_preset fuzz "${targets[@]}" || { summary; exit 1; }
for name in "${targets[@]}"; do
    run_step "$name" run_target "$name" "$BUILD/corpus/$name" -max_total_time="$seconds" || true
done
summary
