#!/bin/bash
# Builds for Windows and runs everything there: the suites on real controls, and the scripts. 32-bit programs come
# first, since they are the product; where their wine can't be had, 64-bit ones run in the machine's own.
#
#   tools/windows/test.sh [--64]
#
# SET32_WINE_ROOT names a folder for 32-bit wine that several checkouts share.
set -euo pipefail
source "$(dirname "$0")/common.sh"

need_cross_tools
if [ "${1:-}" != --64 ] && "$tools/make-root.sh"; then
  preset=mingw-i686
else
  preset=mingw-x86_64
  need wine64 wine wine64
  need Xvfb xvfb xauth
fi
build=$(build_for "$preset")

log=$build/windows-test.log
say "running the $preset programs, log in ${log#"$project/"}"
: > "$log"
failed=0
on_windows "$preset" "$tools/run-all.sh" "$build/bin" >> "$log" 2>&1 || failed=1
grep -E '^(ran|failed|skipped) ' "$log" || true
[ "$failed" = 0 ] || { grep -E -B 12 '^\[  FAILED|^failed |Failure$' "$log" | tail -n 60 >&2; fail "$preset: failed"; }
"$tools/check-dlls.sh"
say "$preset: all passed"
