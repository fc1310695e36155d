#!/usr/bin/env bash
# ./dev package: what a release publishes, in build/package: setup program, portable zip, signed
# update manifest and the list of their digests. See docs/releasing.md for the keys.
set -euo pipefail
source scripts/steps.sh
source scripts/build_steps.sh

OUT="$BUILD/package"
GENERATED="$BUILD/windows-objects/generated"
KEY="${RAVELIN_SIGNING_KEY:-$BUILD/update-key/private.pem}"

# product NAME: the constant as the build has it.
product() {
    sed -nE "s/^inline constexpr char $1\[\] = \"(.*)\";\$/\1/p" "$GENERATED/$2"
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
    if [ "$(node packaging/print_public_key.mjs "$KEY")" != "$(product updateKey update_key.h)" ]; then
        echo "$KEY is not the key that this build trusts; build with its public half as RAVELIN_UPDATE_KEY" >&2
        return 1
    fi
}

make_setup() {
    packaging/setup/make_setup.sh "$GENERATED/product.nsh" "$BUILD/windows" "$OUT/$setup"
}

make_zip() {
    local folder="$OUT/Ravelin"
    cp -r "$BUILD/windows" "$folder"
    (cd "$OUT" && zip -q -X -9 -r "$portable" Ravelin)
    rm -rf "$folder"
}

sign_manifest() {
    node packaging/sign_manifest.mjs --key "$KEY" --installer "$OUT/$setup" --tier "$tier" \
        --version "$version" --url "https://$web_host/download/$setup" --out "$OUT/$tier.json"
}

list_digests() {
    (cd "$OUT" && sha256sum "$setup" "$portable" "$tier.json" >SHA256SUMS)
}

must 'install' scripts/install.sh
must 'page' build_page
must 'windows program' build_windows
version=$(product version product.h)
tier=$(product tier product.h)
web_host=$(product webHost product.h)
setup="ravelin-setup-$version.exe"
portable="ravelin-$version-portable.zip"
must 'signing key' check_key
must 'empty folder' empty_folder
must 'setup program' make_setup
must 'portable zip' make_zip
must 'signed manifest' sign_manifest
must 'digests' list_digests
summary
printf '\n'
cat "$OUT/SHA256SUMS"
