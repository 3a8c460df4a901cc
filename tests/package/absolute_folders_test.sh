#!/usr/bin/env bash
# usage: absolute_folders_test.sh CMAKE COMPILER SOURCE_DIR
# Libraries and headers may be sent to absolute folders, which need not be in the prefix.
set -euo pipefail
cmake=$1 compiler=$2 source=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
libraries=$work/libraries/lib

"$(dirname "$0")/build_library.sh" "$cmake" "$compiler" "$source" "$work/build" \
    -DCMAKE_INSTALL_PREFIX="$work/prefix" -DCMAKE_INSTALL_LIBDIR="$libraries" \
    -DCMAKE_INSTALL_INCLUDEDIR="$work/headers"
"$cmake" --install "$work/build" >"$work/install.log"
for way in find_package pkg_config; do
    "$(dirname "$0")/build_host.sh" "$way" "$cmake" "$compiler" "$work/libraries" "$libraries" \
        "$work/$way"
    LD_LIBRARY_PATH=$libraries "$work/$way/host"
done
