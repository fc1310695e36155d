#!/usr/bin/env bash
# Makes the Wine prefixes of the tests where there are none yet.
set -euo pipefail
cd "$(dirname "$0")/../.."
source tests/wine/prefix.sh
for name in wineprefix wineprefix-update wineprefix-monitors; do
    create_prefix "$PWD/build/$name"
done
