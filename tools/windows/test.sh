#!/bin/bash
# Builds for Windows and runs everything there: the suites on real controls, the scripts, and random walks beside the
# model of windows. With --64 the 64-bit programs, which otherwise run only where 32-bit wine can't be had.
#
#   tools/windows/test.sh [--64]
#
# SET32_WINE_ROOT names a folder for 32-bit wine that several checkouts share.
set -euo pipefail
source "$(dirname "$0")/common.sh"

need_cross_tools
choose_windows "$@"
build=$(build_for "$preset")

log=$build/windows-test.log
say "running the $preset programs, log in ${log#"$project/"}"
on_windows "$preset" "$tools/run-all.sh" "$build/bin" 2>&1 | tee "$log" |
  { grep --line-buffered -E '^(ran|failed|skipped) ' || true; } ||
  { grep -E -B 12 '^\[  FAILED|^failed |Failure$' "$log" | tail -n 60 >&2 || true; fail "$preset: failed ($chosen)"; }
"$tools/compare-walks.sh" "$preset"
"$tools/check-dlls.sh"
"$tools/check-install.sh" "$preset"
"$tools/check-silence.sh" "$preset"
"$tools/check-scan.sh" "$preset"
say "$preset: all passed ($chosen)"
