#!/bin/bash
# Packs the library, its headers, archives, guide and example as a zip, and prints the zip's path.
#
#   tools/package.sh [mingw-i686|mingw-x86_64]     both without a preset
set -euo pipefail
cd "$(dirname "$0")/.."
source tools/need.sh

case "${1:-}" in
  mingw-i686 | mingw-x86_64) presets=("$1") ;;
  "") presets=(mingw-i686 mingw-x86_64) ;;
  *)
    sed -n '2,4s/^#\( \|$\)//p' "$0" >&2
    exit 2
    ;;
esac

need_cross_tools
for preset in "${presets[@]}"; do
  build "$preset" set32 set32_dib
  folder=build/${preset#mingw-}
  quietly "$folder/package.log" cpack --config "$folder/CPackConfig.cmake" || { tail -n 5 "$folder/package.log" >&2; exit 1; }
  sed -n 's/^CPack: - package: \(.*\) generated\.$/\1/p' "$folder/package.log"
done
