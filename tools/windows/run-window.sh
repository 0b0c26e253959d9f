#!/bin/bash
# Builds the windowed host with its set32.dll and starts it: on this machine's display, or on a virtual one when there
# is none. Leaves a picture of it in build/scan-desk.png. On a display it runs until the person closes it; on a virtual
# one it ends as soon as the picture is taken.
#
#   ./run --window [OPTION...] [PREVIEW]
#
#   --face sheet|inline     the panel as a tabbed sheet, or as one page with a dialog
#   --network real          lets the panel search this machine's network, where every machine hears it; else USB alone
#   --jpeg on|off, --output-bits 36|42|48
#                           what the device can do, for the inline face
#   --page 0|1, --tab 0|1|2
#                           turns to the sheet's General or Advanced page, and to a tab of the latter
#   --advanced              opens the inline face's dialog
#
# F1 lists the keys. What a person saves at the panel goes with the window.
set -euo pipefail
source "$(dirname "$0")/common.sh"

usage() { sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"; }

options=()
while [[ "${1:-}" = --* ]]; do
  case "$1 ${2:-}" in
    "--help "*) usage; exit ;;
    "--advanced "*) options+=("$1"); shift; continue ;;
    "--network real") network=() ;;
    "--face "* | "--network "* | "--jpeg "* | "--output-bits "* | "--page "* | "--tab "*) ;;
    *) usage >&2; exit 2 ;;
  esac
  options+=("$1" "$2")
  shift 2
done
[ $# -le 1 ] || { usage >&2; exit 2; }
picture=${1:-samples/flatbed-colour-100dpi.bmp}
[ -e "$picture" ] || fail "there is no $picture"
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
  say "the window stands on display $DISPLAY until you close it; F1 lists its keys, and what you save goes with it"
  on_display "$preset" wine "${desk[@]}" "$picture" || true
  [ -s "$snapshot" ] || say "display $DISPLAY can't be used"
fi
if [ ! -s "$snapshot" ]; then
  say "the window stands on a virtual display until its picture is taken"
  on_windows "$preset" timeout 120 wine "${desk[@]}" --once "$picture"
fi
[ -s "$snapshot" ] || fail "scan-desk left no picture"
say "$preset: the panel stands, picture in $snapshot ($chosen)"
