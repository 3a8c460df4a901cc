#!/usr/bin/env bash
# usage: build_library.sh CMAKE COMPILER SOURCE_DIR BUILD_DIR [OPTION...]
# Builds the library alone, as quickly as can be, with more options for CMake.
set -euo pipefail
cmake=$1 compiler=$2 source=$3 build=$4
shift 4

"$cmake" -S "$source" -B "$build" -G Ninja --fresh -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS=-O0 -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 \
    -DKOVRAN_BUILD_TESTS=OFF -DKOVRAN_BUILD_TOOLS=OFF -DKOVRAN_BUILD_FUZZERS=OFF \
    -DKOVRAN_BUILD_EXAMPLES=OFF -DKOVRAN_BUILD_BENCHMARKS=OFF "$@" >"$build.log"
"$cmake" --build "$build"
