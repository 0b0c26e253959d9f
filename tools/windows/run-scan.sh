#!/bin/bash
# Scans two frames of a page without the panel, as an application does: through the system's source manager, from the
# data source, into files. On this machine the page is the sample, and the scanner stands for a device.
#
#   ./run --scan [OPTION...]
#
#   --ui                        shows the source's dialog, where there is a display, and scans what is set there
#   --dpi N, --mode colour|gray|bw, --frames L,T,R,B[;L,T,R,B...]
#                               what is scanned; frames are inches
#   --help                      prints this
set -euo pipefail
source "$(dirname "$0")/common.sh"

usage() { sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$tools/run-scan.sh"; }

run=on_windows
options=(--mode colour --dpi 150 --frames "0.2,0.2,4,5;4,5,8.3,11")
while [ $# -gt 0 ]; do
  case "$1 ${2:-}" in
    "--help "*) usage; exit ;;
    "--ui "*)
      [ -n "${DISPLAY:-}" ] || fail "--ui needs a display"
      run=on_display
      options+=("$1")
      shift
      continue
      ;;
    "--dpi "?* | "--mode "?* | "--frames "?*) options+=("$1" "$2") ;;
    *)
      echo "windows: can't follow $1${2:+ $2}" >&2
      usage >&2
      exit 2
      ;;
  esac
  shift 2
done

need_cross_tools
choose_windows
build=$(build_for "$preset" acquire)

pages=$build/sample-pages
out=build/scans
rm -rf "$out" "$pages"
mkdir -p "$out" "$pages"
cp samples/flatbed-colour-100dpi.bmp "$pages"
status=0
$run "$preset" "$tools/lay-source.sh" "$build/bin" "$pages" wine "$build/bin/acquire.exe" "${options[@]}" \
  --out "$out" > "$build/scan.log" 2>&1 || status=$?
tr -d '\r' < "$build/scan.log" | tr '\\' '/' >&2
[ "$status" = 0 ] || exit "$status"
say "$preset: $(ls "$out" | wc -l) images lie in $out ($chosen)"
