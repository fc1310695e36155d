#!/usr/bin/env bash
# Removes everything that was generated, after ending what still runs in the project's prefix.
set -euo pipefail
source scripts/steps.sh
[ -d "$BUILD/wineprefix" ] && WINEPREFIX="$BUILD/wineprefix" wineserver -k 2>/dev/null || true
rm -rf build ui/node_modules tests/node_modules packaging/node_modules ui/dist
