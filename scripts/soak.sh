#!/usr/bin/env bash
# ./dev soak [MINUTES]: the real program at work for a long time, measured minute by minute. The table
# is kept in build/soak.txt.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh
source scripts/wine_env.sh

must 'install' scripts/install.sh
must 'page' build_page
must 'windows program' build_windows
start_display
trap 'end_prefix; end_display' EXIT
must 'wine prefix' start_prefix
node tests/bench/soak.mjs "${1:-10}" | tee "$BUILD/soak.txt"
