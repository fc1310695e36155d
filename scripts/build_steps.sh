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

# The files of packaging/files.txt. The executable's symbols go into a file of their own, beside the
# folder: debuggers find it by the name and digest that the executable keeps.
assemble_program() {
    local out="$BUILD/windows" program="$BUILD/windows-objects/Ravelin.exe"
    mkdir -p "$out/ui/vendor" &&
        { [ "$out/Ravelin.exe" -nt "$program" ] || strip_program "$program" "$out/Ravelin.exe" "$BUILD/Ravelin.debug"; } &&
        cp -u packaging/node_modules/webview-bun/build/libwebview.dll "$out/" &&
        cp -u "$BUILD/page/index.html" "$out/ui/" &&
        cp -u "$BUILD/page/vendor/Sortable.min.js" "$out/ui/vendor/" &&
        cp -u LICENSE "$out/LICENSE.txt" &&
        cp -u THIRD-PARTY.txt "$out/"
}

# strip_program PROGRAM STRIPPED SYMBOLS
strip_program() {
    x86_64-w64-mingw32-objcopy --only-keep-debug "$1" "$3" &&
        x86_64-w64-mingw32-objcopy --strip-all --add-gnu-debuglink="$3" "$1" "$2"
}
