#!/bin/bash
# Builds the windowed host with its set32.dll and starts it: on this machine's display, or on a virtual one when there
# is none. Leaves a picture of it in build/scan-desk.png. On a display it runs until the person closes it; on a virtual
# one it ends as soon as the picture is taken.
#
#   tools/windows/run-window.sh [--page N] [--network real] [PREVIEW]
#
# N is the sheet's page on the picture: 0 (General) or 1 (Advanced). Scanners are searched on USB alone, unless --network
# real lets the panel ask every machine in the network.
set -euo pipefail
source "$(dirname "$0")/common.sh"

options=()
while [[ "${1:-}" = --* ]]; do
  [ $# -ge 2 ] || fail "$1 says nothing"
  if [ "$1" = --network ] && [ "$2" = real ]; then network=(); fi
  options+=("$1" "$2")
  shift 2
done
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
