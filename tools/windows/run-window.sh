#!/bin/bash
# Builds the windowed host with its set32.dll and starts it: on this machine's display, or on a virtual one when there
# is none. Leaves a picture of it in build/scan-desk.png. On a display it runs until the person closes it; on a virtual
# one it ends as soon as the picture is taken.
#
#   ./run --window [OPTION...] [PREVIEW]
#
#   --face sheet|inline     the panel as a tabbed sheet, or as one page with a dialog
#   --network usb|real      real lets the panel search this machine's network, where every machine hears it
#   --jpeg on|off, --output-bits 36|42|48
#                           what the device can do, for the inline face
#   --page 0|1, --tab 0|1|2
#                           turns to the sheet's General or Advanced page, and to a tab of the latter
#   --advanced              opens the inline face's dialog
#   --help                  prints this
#
# F1 lists the keys. What a person saves at the panel goes with the window.
set -euo pipefail
source "$(dirname "$0")/common.sh"

usage() { sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$tools/run-window.sh"; }
wrong() {
  echo "windows: $*" >&2
  usage >&2
  exit 2
}

options=()
while [[ "${1:-}" = -* ]]; do
  case "$1 ${2:-}" in
    "--help "*) usage; exit ;;
    "--advanced "*) options+=("$1"); shift; continue ;;
    "--network real") network=() ;;
    "--face sheet" | "--face inline" | "--network usb" | "--jpeg on" | "--jpeg off") ;;
    "--output-bits 36" | "--output-bits 42" | "--output-bits 48" | "--page "[01] | "--tab "[012]) ;;
    *) wrong "can't follow $1${2:+ $2}" ;;
  esac
  options+=("$1" "$2")
  shift 2
done
[ $# -le 1 ] || wrong "one preview is shown, not $2 too"
picture=${1:-samples/flatbed-colour-100dpi.bmp}
[ -f "$picture" ] || wrong "there is no picture $picture; some lie in samples/"

say "in the window F1 lists the keys; Alt+F4 quits, as closing it does"
say "configurations that you save there are dropped with the window, and so are the last settings"
case $(realpath "$picture") in
  "$project"/*) ;;
  *) cp "$picture" build/ && picture=build/$(basename "$picture") ;;  # where wine sees it
esac

need_cross_tools
choose_windows
build=$(build_for "$preset" set32 scan-desk)

snapshot=build/scan-desk.png
rm -f "$snapshot"
desk=("$build/bin/scan-desk.exe" "${options[@]}" --snapshot "$snapshot")
if [ -n "${DISPLAY:-}" ]; then
  say "the window stands on display $DISPLAY until you close it"
  on_display "$preset" wine "${desk[@]}" "$picture" || true
  [ -s "$snapshot" ] || say "display $DISPLAY can't be used"
fi
if [ ! -s "$snapshot" ]; then
  say "the window stands on a virtual display until its picture is taken"
  on_windows "$preset" timeout 120 wine "${desk[@]}" --once "$picture"
fi
[ -s "$snapshot" ] || fail "scan-desk left no picture"
say "$preset: the panel stands, picture in $snapshot ($chosen)"
