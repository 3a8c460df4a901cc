#!/usr/bin/env bash
# usage: packager_flags_test.sh CMAKE COMPILER SOURCE_DIR BUILD_DIR
# Whether the library is hardened is for its packager's flags to say: with them it is, and without it
# is not, as its own build adds nothing. The program's adds nothing to what they say.
set -euo pipefail
cmake=$1 compiler=$2 source=$3 build=$4
failed=0
mkdir -p "$build"
case $(uname -m) in
x86_64) without_control_flow_protection=-fcf-protection=none ;;
*) without_control_flow_protection=-mbranch-protection=none ;;
esac

is_guarded() {  # FILE
    nm --undefined-only "$1" | grep -q '__stack_chk_fail'
}

"$(dirname "$0")/build_library.sh" "$cmake" "$compiler" "$source" "$build/hardened" \
    -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS='-O0 -fstack-protector-all' \
    -DCMAKE_SHARED_LINKER_FLAGS=-Wl,--build-id=0xabcdef01
if ! is_guarded "$build/hardened/libkovran.so"; then
    echo 'flags for the compiler do not reach the library'
    failed=1
fi
if ! readelf --notes "$build/hardened/libkovran.so" | grep -q 'Build ID: abcdef01'; then
    echo 'flags for the linker do not reach the library'
    failed=1
fi

"$cmake" -S "$source" -B "$build/plain" -G Ninja --fresh -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O1 -fno-stack-protector $without_control_flow_protection" \
    -DCMAKE_UNITY_BUILD=OFF -DKOVRAN_BUILD_TESTS=OFF -DKOVRAN_BUILD_TOOLS=ON \
    -DKOVRAN_BUILD_FUZZERS=OFF -DKOVRAN_BUILD_EXAMPLES=OFF -DKOVRAN_BUILD_BENCHMARKS=OFF \
    >"$build/plain.log"
library=CMakeFiles/kovran.dir/src/h265/h265_nal_vps.cpp.o
program=tools/inspect/CMakeFiles/kovran_inspect_core.dir/units/stream_format.cpp.o
"$cmake" --build "$build/plain" --target "$library" "$program"
for object in "$library" "$program"; do
    if is_guarded "$build/plain/$object"; then
        echo "$object is guarded against its packager's flags"
        failed=1
    fi
    if objdump --disassemble "$build/plain/$object" | grep -qE 'endbr64|paciasp|bti'; then
        echo "$object has control-flow protection against its packager's flags"
        failed=1
    fi
done
exit $failed
