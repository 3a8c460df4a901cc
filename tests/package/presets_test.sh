#!/usr/bin/env bash
# usage: presets_test.sh CMAKE SOURCE_DIR
# Only those who work on kovran are stopped by a compiler's warning, which a newer compiler may have.
set -euo pipefail
cmake=$1 source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

stops_at_warnings() {  # PRESET
    (cd "$source" && "$cmake" --preset "$1" -B "$work/$1" -DKOVRAN_BUILD_TOOLS=OFF \
        -DKOVRAN_BUILD_TESTS=OFF -DKOVRAN_BUILD_FUZZERS=OFF >"$work/$1.log")
    grep -q 'h265_nal_aud.cpp' "$work/$1/compile_commands.json"
    grep -q -e '-Werror' "$work/$1/compile_commands.json"
}

if stops_at_warnings release; then
    echo 'the preset release stops at warnings'
    exit 1
fi
if ! stops_at_warnings dev; then
    echo 'the preset dev does not stop at warnings'
    exit 1
fi
