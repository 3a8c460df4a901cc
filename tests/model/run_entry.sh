#!/usr/bin/env bash
# usage: run_entry.sh PYTHON MODEL_TEST ENTRY SEED CASES [FIRST]
# Makes cases of one entry point, or of `all`, and holds the library against them.
set -euo pipefail
python=$1
model_test=$2
shift 2
here=$(cd "$(dirname "$0")" && pwd)
PYTHONPATH=$here "$python" -B -m model "$@" | "$model_test"
