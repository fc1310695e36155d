#!/usr/bin/env bash
# Runs the update tests, or those given, in a private network: a loopback of its own on which the
# vendor's hosts are this machine and port 443 is free, and a Wine prefix of its own whose server
# lives in that network. Nothing of this is seen outside.
set -euo pipefail
cd "$(dirname "$0")/../.."

if [ -z "${DISPLAY:-}" ]; then
    echo "run_tests.sh: needs a display, such as that of ./dev test update" >&2
    exit 2
fi
if [ "${RAVELIN_PRIVATE_NETWORK:-}" != yes ]; then
    for tool in wine openssl unshare ip node; do
        command -v "$tool" >/dev/null || { echo "run_tests.sh: $tool is not installed" >&2; exit 2; }
    done
    export WINEPREFIX="$PWD/build/wineprefix-update" WINEDEBUG="${WINEDEBUG:--all}"
    source tests/wine/prefix.sh
    create_prefix "$WINEPREFIX"
    tests/wine/install_runtime.sh "$WINEPREFIX" build/windows-objects
    WINEPREFIX="$WINEPREFIX" wineserver -k || true
    as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(-r)
    RAVELIN_PRIVATE_NETWORK=yes exec unshare "${as_root[@]}" -mn tests/update/run_tests.sh "$@"
fi

ip link set lo up
hosts=$(mktemp)
trap 'wineserver -k 2>/dev/null || true; rm -f "$hosts"' EXIT
{
    echo "127.0.0.1 localhost"
    sed -nE 's/^inline constexpr char (web|api|unrelated)Host\[\] = "(.*)";$/127.0.0.1 \2/p' \
        build/windows-objects/generated/product.h
} >"$hosts"
mount --bind "$hosts" /etc/hosts

# One Wine server for all of them: starting one anew takes seconds.
wineserver -p
tests=("$@")
[ "${#tests[@]}" -gt 0 ] || tests=(tests/update/*_test.mjs)
# Each file with a limit of its own, so that one that waits for ever names itself.
status=0
for file in "${tests[@]}"; do
    echo "# $file"
    timeout --kill-after=10 400 node --test "$file" || status=$?
done
exit "$status"
