#!/usr/bin/env bash
# usage: hardened_test.sh PROGRAM [fortified]
# What is read off the inspector's program: its place in memory is random, tables of addresses are
# read-only, the stack is guarded, calls land on marked places, and with "fortified", which takes an
# optimised build, calls of the C library check the sizes of buffers.
set -euo pipefail
program=$1 fortified=${2:-}
failed=0

expect() {  # WHAT PATTERN TEXT
    if ! grep -qE "$2" <<<"$3"; then
        echo "no $1"
        failed=1
    fi
}

dynamic=$(readelf --dynamic --wide "$program")
symbols=$(readelf --dyn-syms --wide "$program")
expect 'position-independent executable' 'Flags:.* PIE' "$dynamic"
expect 'immediate binding' 'Flags:.* NOW' "$dynamic"
expect 'read-only relocations' 'GNU_RELRO' "$(readelf --segments --wide "$program")"
expect 'stack protector' '__stack_chk_fail' "$symbols"
if [ "$fortified" = fortified ]; then
    expect 'fortified call' '__[a-z]+_chk@' "$symbols"
fi
case $(uname -m) in
x86_64) expect 'control-flow protection' 'endbr64' "$(objdump --disassemble=main "$program")" ;;
esac
exit $failed
