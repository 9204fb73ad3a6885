#!/usr/bin/env bash
# Plays the tour on a virtual screen with a window manager and a tray. Pictures go to build/tour/, or to the
# folder that --into names.
set -euo pipefail
into=build/tour
[ "${1:-}" = --into ] && into=$2
mkdir -p "$into"
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
QUILL_TRAY=1 scripts/with-display.sh "${QUILL_BIN:-build/release/bin}/quillmenu" --root "$root" --tour "$into"
ls "$into"/*.png
