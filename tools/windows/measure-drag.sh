#!/bin/bash
# How long one step of a dragged slider takes on real windows, the windowed host's own painting counted: for each tab of
# the Advanced page, at full page and on the sample, beside a copy of the picture in the same run.
#
#   tools/windows/measure-drag.sh
set -euo pipefail
source "$(dirname "$0")/common.sh"

need_cross_tools
choose_windows
build=$(build_for "$preset" set32 scan-desk)

# A full page of noise: 2550 by 3507 pixels of 24 bits, rows of 7652 bytes.
page=build/full-page.bmp
word() { printf "\\x$(printf %02x $(($1 & 255)))\\x$(printf %02x $(($1 >> 8 & 255)))\\x$(printf %02x $(($1 >> 16 & 255)))\\x$(printf %02x $(($1 >> 24 & 255)))"; }
size=$((7652 * 3507))
{
  printf 'BM'; word $((size + 54)); word 0; word 54
  word 40; word 2550; word 3507; word $((24 << 16 | 1)); word 0; word $size; word 11811; word 11811; word 0; word 0
  head -c $size /dev/urandom
} > "$page"

for picture in "$page" samples/flatbed-colour-100dpi.bmp; do
  for tab in 0 1 2; do
    told=$(on_windows "$preset" timeout 120 wine "$build/bin/scan-desk.exe" --page 1 --tab "$tab" --drag --once \
      "$picture" 2>&1 | tr -d '\r' | tail -n 1)
    say "$(basename "$picture"), tab $tab: $told"
  done
done
