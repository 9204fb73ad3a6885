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

step "fuzzers, 30 seconds each"
scripts/fuzz.sh 30
step "sanitizers: build and tests"
build asan-ubsan all
ctest --preset asan-ubsan -j 2 --no-tests=error
step "debug build, lint and all tests"
build check all
scripts/lint.sh core
ctest --preset check -j 2 --no-tests=error
