#!/usr/bin/env bash
# `./dev run`: the program with its practice notebook; without a display the same session as a tour.
set -euo pipefail
if [ "$(uname -s)" = Darwin ] || [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec build/release/bin/quillmenu --practice "$@"
fi
echo "No display here: playing the tour on a virtual screen instead."
exec scripts/tour.sh
