#!/usr/bin/env bash
# usage: installed_test.sh find_package|pkg_config CMAKE COMPILER BUILD_DIR
# Installs the build into an empty prefix, and builds and runs a project outside the tree against it;
# then moves the prefix and does the same again. One of the folders has a space in its name.
set -euo pipefail
way=$1 cmake=$2 compiler=$3 build=$4
temporary=$(mktemp -d)
trap 'rm -rf "$temporary"' EXIT
work=$temporary/'a folder'

build_and_run_host() {  # PREFIX
    local library_dir
    library_dir=$(dirname "$(find "$1" -name 'libkovran.so' -o -name 'libkovran.a')")
    "$(dirname "$0")/build_host.sh" "$way" "$cmake" "$compiler" "$1" "$library_dir" "$work/host"
    LD_LIBRARY_PATH=$library_dir "$work/host/host"
}

"$cmake" --install "$build" --prefix "$work/installed" >"$temporary/install.log"
build_and_run_host "$work/installed"
mv "$work/installed" "$work/moved"
build_and_run_host "$work/moved"
