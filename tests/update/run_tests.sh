#!/usr/bin/env bash
# Runs the update tests, or those given, in a private network: a loopback of its own on which the
# vendor's hosts are this machine and port 443 is free, with a display and a Wine prefix of its own
# whose server lives in that network. Nothing of this is seen outside.
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/steps.sh
source scripts/wine_env.sh
export WINEPREFIX="$BUILD/wineprefix-update"

if [ "${RAVELIN_PRIVATE_NETWORK:-}" != yes ]; then
    for tool in wine Xvfb openssl unshare ip node; do
        command -v "$tool" >/dev/null || { echo "run_tests.sh: $tool is not installed" >&2; exit 2; }
    done
    ensure_prefix
    wineserver -k || true
    as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(-r)
    # Out here, where it sees which displays there are.
    start_display
    trap end_display EXIT
    RAVELIN_PRIVATE_NETWORK=yes unshare "${as_root[@]}" -mn tests/update/run_tests.sh "$@"
    exit
fi

ip link set lo up
hosts=$(mktemp)
trap 'end_prefix; rm -f "$hosts"' EXIT
{
    echo "127.0.0.1 localhost"
    sed -nE 's/^ *"(web|api|unrelated)Host": "(.*)",$/127.0.0.1 \2/p' \
        build/windows-objects/generated/product.json
} >"$hosts"
mount --bind "$hosts" /etc/hosts

# The desktop's shell starts programs too, with the environment that it was started with.
export RAVELIN_TEST_DEVTOOLS_DIR="$BUILD/e2e/devtools-of-the-shell"
mkdir -p "$RAVELIN_TEST_DEVTOOLS_DIR"
start_prefix
tests=("$@")
[ "${#tests[@]}" -gt 0 ] || tests=(tests/update/*_test.mjs)
# Each file with a limit of its own, so that one that waits for ever names itself.
status=0
for file in "${tests[@]}"; do
    echo "# $file"
    timeout --kill-after=10 600 node --test "$file" || status=$?
done
exit "$status"
