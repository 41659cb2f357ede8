#!/usr/bin/env bash
# What a screen reader hears of a report, over a real accessibility bus, display and keyboard: the cell that keys go to.
# By hand: check_screen_reader.sh PROGRAM. Exits with 77 where what it needs is not installed.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
launcher=/usr/libexec/at-spi-bus-launcher
python=/usr/bin/python3 # the system's, which has the bindings

inside() { # PROGRAM FOLDER, in a session bus of its own
  local program=$1 work=$2 display
  trap 'kill $(jobs -p) 2>/dev/null || true' EXIT
  Xvfb -displayfd 3 -screen 0 1366x900x24 3>"$work/display" 2>"$work/xvfb.log" &
  for _ in $(seq 100); do
    [[ -s $work/display ]] && break
    sleep 0.1
  done
  display=$(<"$work/display")
  export DISPLAY=:${display:?no display} XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
  openbox >"$work/openbox.log" 2>&1 &
  "$launcher" --launch-immediately >"$work/bus.log" 2>&1 &
  for _ in $(seq 100); do # a window that is there before the window manager gets no keys
    xdotool get_num_desktops >/dev/null 2>&1 && break
    sleep 0.2
  done
  echo admin >"$work/password"
  "$python" "$here/screen_reader.py" "$program" --demo --user admin --password-file "$work/password" \
    --settings "$work/settings" --data "$work/data"
}

if [[ $1 == --inside ]]; then
  inside "$2" "$3"
  exit
fi

missing=()
for tool in Xvfb dbus-run-session xdotool openbox; do
  command -v "$tool" >/dev/null || missing+=("$tool")
done
[[ -x $launcher ]] || missing+=(at-spi2-core)
"$python" -c 'import pyatspi' 2>/dev/null || missing+=(python3-pyatspi)
if ((${#missing[@]})); then
  echo "skipped, not installed: ${missing[*]}"
  exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 700 "$work"
dbus-run-session -- "$0" --inside "$(readlink -f "$1")" "$work" 2>"$work/session.log"
