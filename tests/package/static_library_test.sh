#!/usr/bin/env bash
# usage: static_library_test.sh COMPILER LIBKOVRAN.A INCLUDE_DIR
# A host's shared object takes the static library in, and does not export it.
set -euo pipefail
compiler=$1 library=$2 include=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$compiler" -std=c++17 -O1 -fPIC -fvisibility=hidden -fvisibility-inlines-hidden -I "$include" \
    -shared "$(dirname "$0")/host/main.cpp" "$library" -o "$work/host.so"
names=$(nm --defined-only --demangle "$work/host.so" | cut -d' ' -f3-)
if ! grep -q '^kovran::h265_nal_aud::parse' <<<"$names"; then
    echo 'kovran::h265_nal_aud::parse is not in the shared object'
    exit 1
fi
exported=$(nm --dynamic --defined-only --demangle "$work/host.so" | cut -d' ' -f3- | grep '^kovran::' || true)
if [ -n "$exported" ]; then
    printf 'exported:\n%s\n' "$exported"
    exit 1
fi
