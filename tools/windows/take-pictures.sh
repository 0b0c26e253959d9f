#!/bin/bash
# Takes the pictures for the documents: the General page, the three tabs of the Advanced page, the inline page, and its
# dialog with and without the JPEG group. They replace those in docs.
#
#   tools/windows/take-pictures.sh [NAME...]
set -euo pipefail
source "$(dirname "$0")/common.sh"

declare -A pictures=(
  [general]="--page 0"
  [advanced]="--page 1 --tab 0"
  [advanced-levels]="--page 1 --tab 1"
  [advanced-colours]="--page 1 --tab 2"
  [inline]="--face inline"
  [inline-dialog]="--face inline --advanced"
  [inline-dialog-without-jpeg]="--face inline --advanced --jpeg off"
)
names=("$@")
[ $# -gt 0 ] || names=("${!pictures[@]}")
for name in "${names[@]}"; do
  [ -n "${pictures[$name]:-}" ] || fail "there is no picture $name: ${!pictures[*]}"
done

need_cross_tools
choose_windows
build=$(build_for "$preset" set32 scan-desk)
mkdir -p build/pictures
for name in "${names[@]}"; do
  taken=build/pictures/scan-desk-$name.png
  rm -f "$taken" "$build/bin/QUIRNHW.ini"  # where the dialog was left
  read -ra options <<< "${pictures[$name]}"
  on_windows "$preset" timeout 120 wine "$build/bin/scan-desk.exe" "${options[@]}" --snapshot "$taken" --once \
    samples/flatbed-colour-100dpi.bmp || fail "$name can't be taken"
  mv "$taken" docs/
  say "took docs/scan-desk-$name.png"
done
