#!/usr/bin/env bash
# ./dev package [--trial]: what a release publishes, in build/package: setup program, portable zip,
# symbols, signed update manifest and the list of their digests. See docs/releasing.md for the keys.
#
# A build that nobody could update, or whose addresses lead nowhere, is packed only with --trial, and
# then into build/package-trial.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh

OUT="$BUILD/package"
GENERATED="$BUILD/windows-objects/generated"
KEY="${RAVELIN_SIGNING_KEY:-$BUILD/update-key/private.pem}"
trial=no
case "${1:-}" in
    '') ;;
    --trial) trial=yes OUT="$BUILD/package-trial" ;;
    *) echo 'usage: ./dev package [--trial]' >&2; exit 2 ;;
esac

# product NAME: what the build is told of the product.
product() {
    node -p 'JSON.parse(fs.readFileSync(process.argv[1], "utf8"))[process.argv[2]]' \
        "$GENERATED/product.json" "$1"
}

# Before anything is built: names and keys are the configuration's.
check_release() {
    cmake --preset windows
    node packaging/check_release.mjs "$GENERATED/product.json" "$BUILD/update-key/public.txt"
}

# A release comes from nothing but the program's own files.
empty_folder() {
    rm -rf "$OUT"
    mkdir -p "$OUT"
}

# A manifest by any other key would be refused by every build, in silence.
check_key() {
    if [ ! -f "$KEY" ]; then
        echo "no signing key at $KEY; set RAVELIN_SIGNING_KEY" >&2
        return 1
    fi
    if [ "$(node packaging/print_public_key.mjs "$KEY")" != "$(product updateKey)" ]; then
        echo "$KEY is not the key that this build trusts; build with its public half as RAVELIN_UPDATE_KEY" >&2
        return 1
    fi
}

make_setup() {
    packaging/setup/make_setup.sh "$GENERATED/product.nsh" "$BUILD/windows-objects/setup-plugin" \
        "$BUILD/windows" "$OUT/$setup"
}

# make_zip ZIP FOLDER FILE...: the files of the folder, as a folder named Ravelin.
make_zip() {
    local zip="$1" folder="$2" work="$OUT/work" file
    shift 2
    for file in "$@"; do
        mkdir -p "$work/Ravelin/$(dirname "$file")"
        cp "$folder/$file" "$work/Ravelin/$file" || return
    done
    (cd "$work" && zip -q -X -9 -r "$OUT/$zip" Ravelin)
    rm -rf "$work"
}

make_portable() {
    local files
    mapfile -t files < <(grep -v '^#' packaging/files.txt)
    make_zip "$portable" "$BUILD/windows" "${files[@]}"
}

make_symbols() {
    make_zip "$symbols" "$BUILD" Ravelin.debug
}

sign_manifest() {
    node packaging/sign_manifest.mjs --key "$KEY" --installer "$OUT/$setup" --tier "$tier" \
        --version "$version" --url "https://$web_host/download/$setup" --out "$OUT/$tier.json"
}

list_digests() {
    (cd "$OUT" && sha256sum "$setup" "$portable" "$symbols" "$tier.json" >SHA256SUMS)
}

must 'install' scripts/install.sh
if [ "$trial" = no ]; then
    must 'release configuration' check_release
    must 'licences' node packaging/third_party.mjs --check
fi
must 'page' build_page
must 'windows program' build_windows
version=$(product version)
tier=$(product tier)
web_host=$(product webHost)
setup="ravelin-setup-$version.exe"
portable="ravelin-$version-portable.zip"
symbols="ravelin-$version-symbols.zip"
must 'signing key' check_key
must 'empty folder' empty_folder
must 'setup program' make_setup
must 'portable zip' make_portable
must 'symbols' make_symbols
must 'signed manifest' sign_manifest
must 'digests' list_digests
summary
printf '\n'
cat "$OUT/SHA256SUMS"
