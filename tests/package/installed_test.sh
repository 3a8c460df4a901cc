#!/usr/bin/env bash
# usage: installed_test.sh find_package|pkg_config CMAKE BUILD_DIR COMPILER
# Installs the build into an empty prefix and builds and runs a project outside the tree against it.
set -euo pipefail
way=$1 cmake=$2 build=$3 compiler=$4
host=$(cd "$(dirname "$0")/host" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cmake" --install "$build" --prefix "$work/prefix" >"$work/install.log"
library=$(dirname "$(find "$work/prefix" -name libkovran.so.0)")
mkdir "$work/host"

case $way in
find_package)
    "$cmake" -G Ninja -S "$host" -B "$work/host" -DCMAKE_PREFIX_PATH="$work/prefix" \
        -DCMAKE_CXX_COMPILER="$compiler" >"$work/configure.log"
    "$cmake" --build "$work/host"
    ;;
pkg_config)
    # --define-prefix: the package was configured for another prefix than this one.
    export PKG_CONFIG_PATH=$library/pkgconfig
    read -ra flags <<<"$(pkg-config --define-prefix --define-variable=prefix="$work/prefix" --cflags --libs kovran)"
    "$compiler" -std=c++17 "$host/main.cpp" "${flags[@]}" -o "$work/host/host"
    ;;
*)
    echo "unknown way: $way"
    exit 1
    ;;
esac
LD_LIBRARY_PATH=$library "$work/host/host"
