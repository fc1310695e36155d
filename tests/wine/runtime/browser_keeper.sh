#!/bin/bash
# Keeps one headless Chromium alive for as long as a host process wants it.
#
#   browser_keeper.sh PORT SCALE
#
# SCALE is how many pixels of its pictures there are for one of a page's. The host listens on the
# loopback port; the connection to it is the life line. What Chromium says goes over it to the host,
# headed by "profile FOLDER" and closed by "ended STATUS". The host may send "remove PATH" for a file
# that is to vanish with the browser. When the connection breaks (the view was closed, or the host
# ended in whatever way), Chromium ends and its profile is deleted.
exec 3<>"/dev/tcp/127.0.0.1/$1" || exit 1
exec </dev/null >/dev/null 2>&1
# Whatever else the host's own parents left open, a pipe above all, must not stay open with the
# browser: somebody may wait for its end.
for open in "/proc/$$/fd"/*; do
    number=${open##*/}
    if ((number > 3 && number != 255)); then eval "exec $number>&-"; fi
done
# A Ctrl+C meant for the host must not end the clean-up; the broken connection tells all.
trap '' INT HUP

chromium=${RAVELIN_TEST_CHROMIUM:-chromium}
if ! command -v "$chromium" >/dev/null; then
    echo "missing $chromium: install it, or name another with RAVELIN_TEST_CHROMIUM" >&3
    exit 1
fi
if ! profile=$(mktemp -d "${TMPDIR:-/tmp}/embedded-browser-XXXXXXXX" 2>&1); then
    echo "missing a writable folder for the browser's profile: $profile" >&3
    exit 1
fi
echo "profile $profile" >&3

flags=(
    --headless --no-sandbox --disable-gpu --remote-debugging-port=0 "--user-data-dir=$profile"
    --no-first-run --no-default-browser-check --disable-background-networking --disable-sync
    --disable-component-update --disable-default-apps --disable-extensions --disable-quic
    --disable-breakpad --disable-crash-reporter --disable-dev-shm-usage --disable-domain-reliability
    --disable-features=Translate,MediaRouter,OptimizationHints --disable-popup-blocking
    "--force-device-scale-factor=$2" --force-color-profile=srgb --password-store=basic
    --use-mock-keychain --metrics-recording-only --log-level=3 about:blank
)
# A session of its own, so that one signal reaches every process of this browser; temporary files
# go into the profile and so away with it.
TMPDIR=$profile DBUS_SESSION_BUS_ADDRESS=disabled: DBUS_SYSTEM_BUS_ADDRESS=disabled: \
    setsid "$chromium" "${flags[@]}" >&3 2>&3 3>&- &
browser=$!

{
    leftovers=()
    while read -r -u 3 order path; do
        if [[ $order == remove ]]; then leftovers+=("$path"); fi
    done
    # By its own id as well: it may not have got its session yet.
    kill -KILL -- "-$browser"
    kill -KILL "$browser"
    rm -f -- "${leftovers[@]}"
} &
host=$!

wait "$browser"
echo "ended $?" >&3
wait "$host"
# Helpers of the browser that are still ending may write a last file into the profile.
for ((attempt = 0; attempt < 50; attempt++)); do
    if rm -rf -- "$profile"; then break; fi
    sleep 0.1
done
