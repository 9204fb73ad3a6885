#!/usr/bin/env bash
# `./dev test`: everything that must pass. `./dev test quick …`: the debug build's tests alone.
set -euo pipefail
source scripts/setup.sh

if [ "${1:-}" = quick ]; then
  shift
  build debug all
  exec ctest --preset debug -j 2 "$@"
fi

step() { printf '\n== %s (%s s)\n' "$1" "$SECONDS"; }

step "sanitizer build with the fuzzers"
build asan-ubsan all
step "fuzzers, 30 seconds each"
scripts/fuzz.sh 30
step "the core's tests under the sanitizers"
ctest --preset asan-ubsan -j 2 --no-tests=error
step "lint"
scripts/lint.sh fast
step "debug build"
build check all
step "the Qt faces' tests"
ctest --preset check -j 2 --no-tests=error
