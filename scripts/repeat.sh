#!/usr/bin/env bash
# ./dev repeat ROUNDS [--busy N] [STEP ...]: ./dev test STEP ... so many times in a row, the last N
# rounds with every core kept busy by something else. Ends with a table of the failures, whose logs
# are kept in build/repeat.
set -euo pipefail
source scripts/steps.sh

usage() { echo 'usage: ./dev repeat ROUNDS [--busy N] [STEP ...]' >&2; exit 2; }
is_number() { [[ "$1" =~ ^[0-9]+$ ]]; }

rounds="${1:-}" busy=0
is_number "$rounds" || usage
shift
if [ "${1:-}" = --busy ]; then
    busy="${2:-}"
    is_number "$busy" && [ "$busy" -le "$rounds" ] || usage
    shift 2
fi

KEPT="$BUILD/repeat"
rm -rf "$KEPT"
mkdir -p "$KEPT"

load=()
begin_load() {
    local core
    for ((core = 0; core < $(nproc); core++)); do
        while :; do :; done &
        load+=($!)
    done
}
end_load() {
    [ "${#load[@]}" -gt 0 ] || return 0
    kill "${load[@]}" 2>/dev/null || true
    wait "${load[@]}" 2>/dev/null || true
    load=()
}
trap end_load EXIT

steps=()
declare -A runs failures
failed_rounds=()

# count KIND STEP RESULT
count() {
    [ -n "${runs[quiet/$2]:-}${runs[busy/$2]:-}" ] || steps+=("$2")
    runs[$1/$2]=$((${runs[$1/$2]:-0} + 1))
    [ "$3" = ok ] || failures[$1/$2]=$((${failures[$1/$2]:-0} + 1))
}

# What the log of a failed step names: tests of node, GoogleTest, Vitest and the runtime's own.
failed_tests() {
    sed -nE 's/^not ok [0-9]+ - (.*)/\1/p; s/^\[  FAILED  \] ([A-Za-z]+[A-Za-z0-9_./]*)( .*)?$/\1/p; s/^FAILED  +(.*)/\1/p; s/^ +FAIL +(.*)/\1/p' "$1" |
        sort -u
}

# note_round KIND NAME OUTPUT: counts the round's steps and keeps what belongs to its failures.
note_round() {
    local kind="$1" name="$2" step result log
    while IFS=$'\t' read -r step result; do
        count "$kind" "$step" "$result"
        [ "$result" = FAILED ] || continue
        log=$(log_of "$step")
        mkdir -p "$KEPT/$name"
        cp "$log" "$KEPT/$name/"
        [ ! -d "$BUILD/screenshots/failures" ] || cp -r "$BUILD/screenshots/failures" "$KEPT/$name/"
        failed_rounds+=("$name: $step: $(failed_tests "$log" | paste -sd ';' | sed 's/;/; /g')")
    done < <(sed -nE 's/^(.*[^ ]) +(ok|FAILED) +[0-9]+ s.*$/\1\t\2/p' "$3")
}

for ((round = 1; round <= rounds; round++)); do
    kind=quiet
    if ((round > rounds - busy)); then
        kind=busy
        [ "${#load[@]}" -gt 0 ] || begin_load
    fi
    name="round-$round-$kind"
    began=$SECONDS status=0
    scripts/test.sh "$@" >"$KEPT/$name.txt" 2>&1 </dev/null || status=$?
    printf '%-20s %-7s %4d s\n' "$name" "$([ "$status" -eq 0 ] && echo ok || echo FAILED)" $((SECONDS - began))
    note_round "$kind" "$name" "$KEPT/$name.txt"
done
end_load

printf '\n%-34s %15s %15s\n' 'failures of runs' quiet busy
of_runs() { printf '%s of %s' "${failures[$1]:-0}" "${runs[$1]:-0}"; }
for step in "${steps[@]}"; do
    printf '%-34s %15s %15s\n' "$step" "$(of_runs "quiet/$step")" "$(of_runs "busy/$step")"
done
if [ "${#failed_rounds[@]}" -gt 0 ]; then
    printf '\n%s\n' "${failed_rounds[@]}"
    printf '\nTheir logs are in %s.\n' "${KEPT#"$ROOT/"}"
    exit 1
fi
