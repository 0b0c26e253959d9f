#!/usr/bin/env bash
# Builds what measures and prints its tables: figures beside their peers, budgets and whether they hold.
#
#   tools/bench.sh                    all of it on this system
#   tools/bench.sh --windows [--64]   the work on the picture on 32-bit Windows, or on 64-bit one
set -euo pipefail
cd "$(dirname "$0")/.."
source tools/need.sh

case "$*" in
  "")
    need_build_tools
    need_test_tools
    programs=(bench/*_bench.cpp)
    programs=("${programs[@]#bench/}")
    programs=("${programs[@]%.cpp}")
    build release "${programs[@]}"
    echo >&2
    for program in picture_bench drag_bench; do "build/bin/$program"; done
    for program in "${programs[@]}"; do
      case $program in picture_bench | drag_bench) ;; *) "build/bin/$program" && echo ;; esac
    done
    ;;
  "--windows" | "--windows --64")
    source tools/windows/common.sh
    need_cross_tools
    choose_windows "${@:2}"
    build=$(build_for "$preset" picture_bench)
    on_windows "$preset" wine "$build/bin/picture_bench.exe" | tr -d '\r'
    ;;
  *)
    sed -n '2,5s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
