#!/usr/bin/env bash
# Renders every window, light and dark, into docs/images/ or the folder that --into names. What else is said goes
# to the program: --language de, --rtl, --scale 2, --only options.
set -euo pipefail
into=docs/images
if [ "${1:-}" = --into ]; then
  into=$2
  shift 2
fi
program=${QUILL_BIN:-build/release/bin}/quill_pictures
# High enough for the whole menu.
export DISPLAY_SIZE=${DISPLAY_SIZE:-2560x1800x24}
scripts/with-display.sh "$program" "$@" "$into"
scripts/with-display.sh "$program" --dark "$@" "$into"
