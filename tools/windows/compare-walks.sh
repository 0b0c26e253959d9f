#!/bin/bash
# Plays one fixed set of random walks on the model of windows, on this system, and on real windows, and compares what
# they print line by line.
#
#   compare-walks.sh PRESET
set -euo pipefail
source "$(dirname "$0")/common.sh"

preset=$1
steps=200
walks=build/walks
need_test_tools
build release scan-host
programs=$(build_for "$preset" scan-host)/bin

rm -rf "$walks"
mkdir -p "$walks"
for walk in sheet-1 sheet-2 sheet-3 inline-1 inline-2 inline-3; do
  build/bin/scan-host --random "${walk#*-}" "$steps" --face "${walk%-*}" --record "$walks/$walk.scn" ||
    fail "walk $walk can't be recorded"
  build/bin/scan-host --echo "$walks/$walk.scn" > "$walks/$walk.model" || fail "walk $walk doesn't play to its end"
done
on_windows "$preset" bash -c '
  for walk in "$2"/*.scn; do
    timeout 300 wine "$1/scan-host.exe" --echo "$walk" > "${walk%.scn}.real" 2> "${walk%.scn}.complaints" || true
  done' walks "$programs" "$walks"

# How wide a list drops hangs on the font.
without_fonts() { sed -E 's/ dropped=[0-9]+//' "$1"; }
for walk in "$walks"/*.scn; do
  name=${walk%.scn}
  if ! cmp -s <(without_fonts "$name.model") <(without_fonts "$name.real"); then
    diff -U 6 <(without_fonts "$name.model") <(without_fonts "$name.real") | head -n 40 >&2 || true
    cat "$name.complaints" >&2
    fail "$preset: the walk in $name.scn ends elsewhere on real windows"
  fi
done
say "$preset: $(cat "$walks"/*.model | wc -l) lines of random walks are the same on the model and on real windows"
