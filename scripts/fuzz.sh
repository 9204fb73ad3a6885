#!/usr/bin/env bash
# Runs every fuzzer for some seconds from its seeds; finds go to build/fuzz-findings/ and fail the run.
set -euo pipefail
source scripts/setup.sh
seconds=${1:-30}
only=${2:-}
build asan-ubsan fuzzers
mkdir -p build/fuzz-findings

run_one() {
  local binary=$1 name work
  name=$(basename "$binary")
  work=build/fuzz-corpus/$name
  mkdir -p "$work"
  local arguments=(-max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -print_final_stats=1
    -artifact_prefix="build/fuzz-findings/$name-")
  arguments+=(-dict=fuzz/html.dict)
  local seeds=()
  [ -d "fuzz/corpus/$name" ] && seeds=("fuzz/corpus/$name")
  if ! "$binary" "${arguments[@]}" "$work" "${seeds[@]}" >"build/fuzz-findings/$name.log" 2>&1; then
    echo "fuzz: $name FAILED" >&2
    tail -n 40 "build/fuzz-findings/$name.log" >&2
    return 1
  fi
  printf 'fuzz: %-24s %s runs, nothing found\n' "$name" \
    "$(sed -n 's/^stat::number_of_executed_units: *//p' "build/fuzz-findings/$name.log")"
}
export -f run_one
export seconds
ls build/asan-ubsan/bin/fuzz_*"$only"* | grep -v '\.' | xargs -n 1 -P 2 bash -c 'set -euo pipefail; run_one "$0"'
