#!/bin/sh
# Runs a command on an X display of its own and returns its status:  with-display.sh COMMAND…
# DISPLAY_SIZE sets the screen (1280x900x24); a window manager runs there unless NO_WINDOW_MANAGER is set, and an
# XEmbed tray when QUILL_TRAY is set.
set -u
[ $# -gt 0 ] || { echo "usage: with-display.sh COMMAND…" >&2; exit 2; }
command -v Xvfb >/dev/null || { echo "with-display.sh: Xvfb is not installed" >&2; exit 77; }

scratch=$(mktemp -d)
server= manager= tray=
finish() {
  [ -z "$tray" ] || kill "$tray" 2>/dev/null
  [ -z "$manager" ] || { kill "$manager" 2>/dev/null; wait "$manager" 2>/dev/null; }
  [ -z "$server" ] || { kill "$server" 2>/dev/null; wait "$server" 2>/dev/null; }
  rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 143' TERM INT HUP

mkfifo "$scratch/display"
Xvfb -displayfd 3 -screen 0 "${DISPLAY_SIZE:-1280x900x24}" -nolisten tcp 3>"$scratch/display" 2>"$scratch/log" &
server=$!
read -r number <"$scratch/display" || { cat "$scratch/log" >&2; exit 1; }
DISPLAY=":$number"
export DISPLAY
unset WAYLAND_DISPLAY

if [ -z "${NO_WINDOW_MANAGER:-}" ] && command -v openbox >/dev/null; then
  openbox >/dev/null 2>&1 &
  manager=$!
fi
if [ -n "${QUILL_TRAY:-}" ]; then
  command -v xsetroot >/dev/null && xsetroot -solid "#5b7083"
  trayer --edge bottom --align right --widthtype request --height 26 --SetDockType true --transparent true \
    --alpha 255 >/dev/null 2>&1 &
  tray=$!
fi
"$@"
