#!/usr/bin/env bash
# ./dev shot: screenshots of the real window in its main states into build/screenshots.
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
node tests/e2e/shots.mjs
