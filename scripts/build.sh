#!/usr/bin/env bash
# ./dev build: the program ready to copy in build/windows, host programs in build/host.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh

must 'install' scripts/install.sh
must 'page' build_page
must 'windows program' build_windows
must 'host programs' build_preset host
summary
