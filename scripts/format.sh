#!/usr/bin/env bash
# format.sh check | fits | apply: the formatting of the sources, by the one version of clang-format
# whose line breaks they have. Others break lines elsewhere.
set -euo pipefail
version=14

formatter() {
    local name
    for name in "clang-format-$version" clang-format; do
        if command -v "$name" >/dev/null && "$name" --version | grep -q " version $version\."; then
            echo "$name"
            return
        fi
    done
    echo "clang-format $version is not installed" >&2
    return 1
}

sources() { git ls-files -co --exclude-standard '*.cpp' '*.h'; }

case "${1:-}" in
    check) program=$(formatter) && sources | xargs "$program" --dry-run --Werror ;;
    fits) formatter >/dev/null ;;
    apply) program=$(formatter) && sources | xargs "$program" -i ;;
    *) exit 2 ;;
esac
