#!/usr/bin/env bash
# Installs what the project needs on a Debian 12 machine: the apt packages of apt-packages.txt,
# Node.js where none is there, and the npm packages of the lock files.
set -euo pipefail
source scripts/steps.sh

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

install_apt() {
    up_to_date "$BUILD/stamps/apt" scripts/apt-packages.txt && return
    local wanted=() missing=() package
    mapfile -t wanted <scripts/apt-packages.txt
    command -v node >/dev/null || wanted+=(nodejs)
    command -v npm >/dev/null || wanted+=(npm)
    for package in "${wanted[@]}"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    if [ "${#missing[@]}" -gt 0 ]; then
        echo "installing: ${missing[*]}"
        as_root apt-get update
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
    fi
    remember "$BUILD/stamps/apt" scripts/apt-packages.txt
}

install_npm() {
    local folder
    for folder in ui tests packaging; do
        [ -f "$folder/package-lock.json" ] || continue
        [ -d "$folder/node_modules" ] && up_to_date "$folder/node_modules/.stamp" "$folder/package-lock.json" && continue
        echo "npm packages of $folder"
        # Not `npm ci`: it wants every platform's optional package in the lock file, and registries
        # differ in which of those they carry. The locked versions count here as well.
        (cd "$folder" && npm install --no-save --no-audit --no-fund --loglevel=error)
        remember "$folder/node_modules/.stamp" "$folder/package-lock.json"
    done
}

install_apt
install_npm
