# Shared by the scripts: where things are, and steps that are quiet on success and say on failure
# which step failed and how to see more. Sourced from the project's root.
ROOT="$(pwd -P)"
BUILD="$ROOT/build"
LOGS="$BUILD/logs"
JOBS="${JOBS:-$(nproc)}"
mkdir -p "$LOGS"

passed_steps=()
failed_steps=()

# run_step NAME COMMAND...: runs the command with its output in build/logs/NAME.log.
run_step() {
    local name="$1" log began=$SECONDS status=0
    log=$(log_of "$1")
    shift
    printf '%-34s' "$name"
    "$@" >"$log" 2>&1 </dev/null || status=$?
    report_step "$name" "$status" $((SECONDS - began))
}

log_of() { printf '%s' "$LOGS/${1// /-}.log"; }

# report_step NAME STATUS SECONDS: the rest of the step's line; gives the status back.
report_step() {
    local name="$1" status="$2" seconds="$3" log
    log=$(log_of "$1")
    if [ "$status" -eq 0 ]; then
        passed_steps+=("$name")
        printf 'ok      %4d s%s\n' "$seconds" "$(test_counts "$log")"
    else
        failed_steps+=("$name")
        printf 'FAILED  %4d s (exit code %d)\n' "$seconds" "$status"
        tail -n 40 "$log" | sed 's/^/    | /'
        printf '    the whole log: %s\n' "${log#"$ROOT/"}"
    fi
    return "$status"
}

# begin_step NAME COMMAND...: starts the command beside the steps that follow, until end_step gives
# its line. One at a time; the command is a program, so that drop_step can end it.
begin_step() {
    local log
    beside_name="$1"
    log=$(log_of "$1")
    shift
    (
        began=$SECONDS status=0
        "$@" >"$log" 2>&1 </dev/null &
        trap "kill $!" TERM
        wait $! || status=$?
        echo "$status $((SECONDS - began))" >"$log.end"
    ) &
    beside=$!
}

end_step() {
    local status seconds log
    log=$(log_of "$beside_name")
    wait "$beside" || true
    beside=
    read -r status seconds <"$log.end"
    rm -f "$log.end"
    printf '%-34s' "$beside_name"
    report_step "$beside_name" "$status" "$seconds"
}

# Ends what still runs beside, without a line.
drop_step() {
    [ -n "${beside:-}" ] || return 0
    kill "$beside" 2>/dev/null || true
    wait "$beside" || true
}

# The check of the formatting, where the version of the formatter is there that the sources have.
run_format_step() {
    local missing
    if missing=$(scripts/format.sh fits 2>&1); then
        run_step 'format' scripts/format.sh check || true
    else
        printf '%-34sskipped: %s\n' 'format' "$missing"
    fi
}

# What a test program said of itself, for the step's line.
test_counts() {
    local count
    count=$(sed -nE 's/^\[  PASSED  \] ([0-9]+) tests?\.$/\1/p; s/^# pass ([0-9]+)$/\1/p; s/^([0-9]+) passed, 0 failed$/\1/p; s/^ +Tests +([0-9]+) passed.*/\1/p' "$1" |
        awk '{ n += $1 } END { if (n) print n }')
    [ -n "$count" ] && printf '   %s tests' "$count"
    return 0
}

# A step that everything after it needs: ends the run when it fails.
must() {
    run_step "$@" || summary || exit 1
}

# One summary; non-zero when a step failed.
summary() {
    printf '\n'
    if [ "${#failed_steps[@]}" -gt 0 ]; then
        printf 'Failed: %s\n' "${failed_steps[*]}"
        printf 'Logs are in build/logs, pictures of failures in build/screenshots.\n'
    fi
    printf '%d passed, %d failed\n' "${#passed_steps[@]}" "${#failed_steps[@]}"
    [ "${#failed_steps[@]}" -eq 0 ]
}

# up_to_date STAMP INPUT...: the stamp exists and holds the digest of the inputs as they are now.
up_to_date() {
    local stamp="$1"
    shift
    [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$(digest "$@")" ]
}

digest() {
    cat "$@" | sha256sum | cut -d' ' -f1
}

remember() {
    local stamp="$1"
    shift
    mkdir -p "$(dirname "$stamp")"
    digest "$@" >"$stamp"
}
