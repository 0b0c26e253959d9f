#!/bin/bash
# Scans by way of the system's source manager, with the panel and without it, and looks at what comes out.
#
#   check-scan.sh PRESET
set -euo pipefail
source "$(dirname "$0")/common.sh"

preset=$1
build=$(build_for "$preset" scan_road acquire)
pages=$build/scan-pages
scan() { on_windows "$preset" "$tools/lay-source.sh" "$build/bin" "$pages" timeout 300 wine "$@"; }

scan "$build/bin/scan_road.exe" --gtest_brief=1 | tr -d '\r' || fail "$preset: the road from application to scanner"

for wrong in "--dpi" "--dpi many" "--frames 1,2,3" "--mode red" "--what"; do
  status=0
  # shellcheck disable=SC2086
  scan "$build/bin/acquire.exe" $wrong 2> /dev/null || status=$?
  [ "$status" = 2 ] || fail "$preset: acquire $wrong ends with $status"
done
say "$preset: an application scans through the source manager"
