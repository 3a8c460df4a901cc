#!/usr/bin/env bash
# usage: shared_object_test.sh LIBKOVRAN.SO
# The shared object exports names of namespace kovran only, is called libkovran.so.0, and needs nothing
# but the C++ runtime and libc.
set -euo pipefail
library=$1
failed=0

exported=$(nm --dynamic --defined-only --demangle "$library" | cut -d' ' -f3-)
foreign=$(grep -v '^kovran::' <<<"$exported" || true)
if [ -n "$foreign" ]; then
    printf 'exported, but not of namespace kovran:\n%s\n' "$foreign"
    failed=1
fi
if ! grep -q '^kovran::h265_nal::decode_header' <<<"$exported"; then
    echo 'kovran::h265_nal::decode_header is not exported'
    failed=1
fi

dynamic=$(readelf --dynamic --wide "$library")
soname=$(sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p' <<<"$dynamic")
if [ "$soname" != libkovran.so.0 ]; then
    echo "soname is '$soname'"
    failed=1
fi
needed=$(sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' <<<"$dynamic")
unexpected=$(grep -vxE 'lib(stdc\+\+\.so\.6|m\.so\.6|gcc_s\.so\.1|c\.so\.6)' <<<"$needed" || true)
if [ -n "$unexpected" ]; then
    printf 'needs more than the C++ runtime and libc:\n%s\n' "$unexpected"
    failed=1
fi
exit $failed
