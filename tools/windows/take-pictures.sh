#!/bin/bash
# Takes the pictures for the documents: the General page, the three tabs of the Advanced page, the inline page, and its
# dialog with and without the JPEG group; and the dialog of the data source. They replace those in docs.
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
[ $# -gt 0 ] || names=("${!pictures[@]}" data-source)
for name in "${names[@]}"; do
  [ -n "${pictures[$name]:-}" ] || [ "$name" = data-source ] ||
    fail "there is no picture $name: ${!pictures[*]} data-source"
done

need_cross_tools
choose_windows
build=$(build_for "$preset" set32 scan-desk scan_road)
mkdir -p build/pictures
for name in "${names[@]}"; do
  if [ "$name" = data-source ]; then
    taken=build/pictures/data-source.png
    mkdir -p build/pictures/pages
    cp samples/flatbed-colour-100dpi.bmp build/pictures/pages
    on_windows "$preset" "$tools/lay-source.sh" "$build/bin" "$project/build/pictures/pages" \
      timeout 120 wine "$build/bin/scan_road.exe" --picture "$taken" || fail "$name can't be taken"
    mv "$taken" docs/
    say "took docs/data-source.png"
    continue
  fi
  taken=build/pictures/scan-desk-$name.png
  rm -f "$taken" "$build/bin/QUIRNHW.ini"  # where the dialog was left
  read -ra options <<< "${pictures[$name]}"
  on_windows "$preset" timeout 120 wine "$build/bin/scan-desk.exe" "${options[@]}" --snapshot "$taken" --once \
    samples/flatbed-colour-100dpi.bmp || fail "$name can't be taken"
  mv "$taken" docs/
  say "took docs/scan-desk-$name.png"
done
