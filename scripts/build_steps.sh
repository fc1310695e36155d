# The build steps that the commands share. Sourced after steps.sh.
#
# Commands are joined by hand: a step is part of a condition, where the shell goes on after a failure
# in spite of errexit, and a build that failed would count as one that was done.

# build_preset PRESET [TARGET...]: configures once and builds.
build_preset() {
    local preset="$1" targets=()
    shift
    [ $# -gt 0 ] && targets=(--target "$@")
    local folder="$BUILD/$preset"
    [ "$preset" = windows ] && folder="$BUILD/windows-objects"
    if ! up_to_date "$folder/.configured" CMakePresets.json || [ ! -f "$folder/build.ninja" ]; then
        cmake --preset "$preset" && remember "$folder/.configured" CMakePresets.json || return
    fi
    cmake --build "$folder" -j "$JOBS" "${targets[@]}"
}

build_page() {
    (cd ui && npm run build -- --outDir "$BUILD/page" --emptyOutDir)
}

# Puts the program together: executable, view library, page.
build_windows() {
    build_preset windows && assemble_program
}

assemble_program() {
    local out="$BUILD/windows"
    mkdir -p "$out/ui/vendor" &&
        cp -u "$BUILD/windows-objects/Ravelin.exe" "$out/" &&
        cp -u packaging/node_modules/webview-bun/build/libwebview.dll "$out/" &&
        cp -u "$BUILD/page/index.html" "$out/ui/" &&
        cp -u "$BUILD/page/vendor/Sortable.min.js" "$out/ui/vendor/"
}
