#!/usr/bin/env bash
# usage: build_host.sh find_package|pkg_config CMAKE COMPILER PREFIX LIBRARY_DIR FOLDER
# Builds a project outside the tree against an installed kovran. The program is FOLDER/host; FOLDER is
# made anew.
set -euo pipefail
way=$1 cmake=$2 compiler=$3 prefix=$4 library_dir=$5 folder=$6
sources=$(dirname "$0")/host
rm -rf "$folder"
mkdir "$folder"

case $way in
find_package)
    "$cmake" -G Ninja -S "$sources" -B "$folder" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_CXX_COMPILER="$compiler" >"$folder/configure.log"
    "$cmake" --build "$folder"
    ;;
pkg_config)
    quoted=$(PKG_CONFIG_PATH=$library_dir/pkgconfig pkg-config --cflags --libs kovran)
    declare -a flags="($quoted)"  # quoted for a shell
    "$compiler" -std=c++17 "$sources/main.cpp" "${flags[@]}" -o "$folder/host"
    ;;
*)
    echo "unknown way: $way"
    exit 1
    ;;
esac
