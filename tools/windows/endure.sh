#!/bin/bash
# A wild host's calls at the built library, life after life: no crash, and handles as before. Builds first, prints the
# figures, and fails when anything does.
#
#   tools/windows/endure.sh [SECONDS [SEED]]
set -euo pipefail
source "$(dirname "$0")/common.sh"

seconds=${1:-600}
seed=${2:-$RANDOM}
need_cross_tools
choose_windows
build=$(build_for "$preset" set32 dll_tests)
say "enduring $seconds s, seed $seed"
# What a hang would take longer than.
on_windows "$preset" timeout $((seconds + 300)) wine "$build/bin/dll_tests.exe" --gtest_brief=1 \
  '--gtest_filter=Endurance.*' "--seconds=$seconds" "--seed=$seed" | tr -d '\r'
