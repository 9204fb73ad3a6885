#!/usr/bin/env bash
# Builds the benchmarks and prints one table: ours, peer or floor, ratio, budget, verdict.
set -euo pipefail
source scripts/setup.sh
build bench all
exec python3 scripts/bench.py build/bench/bin "$@"
