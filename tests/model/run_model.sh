#!/usr/bin/env bash
# usage: tests/model/run_model.sh [SEED] [CASES]
# A long run: CASES cases of each entry point (2000 unless given) from SEED (the time unless given),
# with the program that MODEL_TEST names or else the one under build/dev.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
seed=${1:-$(date +%s)}
cases=${2:-2000}
model_test=${MODEL_TEST:-$here/../../build/dev/tests/model/model_test}

status=0
for entry in $(PYTHONPATH=$here python3 -B -m model list); do
    printf '%s, seed %s: ' "$entry" "$seed"
    "$here/run_entry.sh" python3 "$model_test" "$entry" "$seed" "$cases" || status=1
done
exit "$status"
