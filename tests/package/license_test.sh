#!/usr/bin/env bash
# usage: license_test.sh CMAKE BUILD_DIR LICENSE
# The license is installed with what it is about.
set -euo pipefail
cmake=$1 build=$2 license=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cmake" --install "$build" --prefix "$work/prefix" >"$work/install.log"
cmp "$license" "$work/prefix/share/doc/kovran/LICENSE"
