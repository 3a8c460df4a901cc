#!/usr/bin/env bash
# usage: inspector_test.sh CMAKE COMPILER BUILD_DIR SOURCE_DIR FOLDER
# The inspector's sources alone, away from the tree, become the program with an installed library: they
# need nothing of the library but its public headers. FOLDER is made anew.
set -euo pipefail
cmake=$1 compiler=$2 build=$3 source=$4 folder=$5
rm -rf "$folder"
mkdir "$folder"

"$cmake" --install "$build" --prefix "$folder/installed" >"$folder/install.log"
rm "$folder/installed/bin/kovran"
cp -r "$source/tools/inspect" "$folder/sources"
"$cmake" -G Ninja -S "$folder/sources" -B "$folder/build" -DCMAKE_PREFIX_PATH="$folder/installed" \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS=-O0 >"$folder/configure.log"
"$cmake" --build "$folder/build" >"$folder/build.log" || { cat "$folder/build.log"; exit 1; }
"$cmake" --install "$folder/build" --prefix "$folder/installed" >>"$folder/install.log"

same_output() {  # ARGUMENT...
    diff <("$build/tools/inspect/kovran" "$@") <("$folder/installed/bin/kovran" "$@")
}
same_output --version
same_output dump "$source/tests/streams/hm_still.hevc"
same_output differences --all "$source/tests/streams/hmx_vps_hrd1.hevc"
