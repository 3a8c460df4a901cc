#!/usr/bin/env bash
# usage: same_bytes_test.sh CMAKE COMPILER SOURCE_DIR [OPTION...]
# Sources and build in other folders give the same bytes in all that is installed.
set -euo pipefail
cmake=$1 compiler=$2 source=$3
shift 3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

install_from() {  # FOLDER
    mkdir -p "$work/$1/sources"
    cp -r "$source"/{CMakeLists.txt,LICENSE,cmake,include,src,tools} "$work/$1/sources"
    "$(dirname "$0")/build_library.sh" "$cmake" "$compiler" "$work/$1/sources" "$work/$1/build" "${@:2}"
    "$cmake" --install "$work/$1/build" --prefix "$work/$1/installed" >"$work/install.log"
}

install_from one "$@"
install_from another/folder "$@"
diff -r "$work/one/installed" "$work/another/folder/installed"
