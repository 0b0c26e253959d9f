#!/usr/bin/env bash
# Each fuzz target for so many seconds, from its seeds and with its dictionary, and a table of what came of it.
#
#   ./test --fuzz SECONDS [TARGET...]     SECONDS is 10 or more; all targets unless some are named
#
# It fails when a target crashes, hangs, or reaches fewer edges of the code than its floor (fuzz/floors.txt): then it
# tests less than it did. A crash leaves its input in build/fuzz/found, and the target's whole report in build/fuzz/log;
# `build/fuzz/bin/TARGET FILE` plays the input again.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
  sed -n '4s/^# *//p' "$0" >&2
  exit 2
}

shortest=10
[[ ${1:-} =~ ^[1-9][0-9]{1,5}$ && $1 -ge $shortest ]] || usage
seconds=$1
shift
for name in "$@"; do [[ $name =~ ^fuzz_[a-z_]+$ && -f fuzz/$name.cpp ]] || usage; done

source tools/need.sh
need_build_tools
need_fuzz_tools
build fuzz

place=build/fuzz
mkdir -p $place/found $place/log $place/tmp
$place/bin/make_seeds $place/seeds tests/data/scripts
targets=("$@")
if [[ $# -eq 0 ]]; then
  for source in fuzz/fuzz_*.cpp; do targets+=("$(basename "$source" .cpp)"); done
fi

# run TARGET: its report goes to its log. Long inputs from the start, since short ones end before anything is done with
# what they say; and memory that is used again soon, since fresh pages are a seventh of the time where much is allocated.
run() {
  local seeds=$place/seeds/$1 words=()
  [[ -f $seeds.dict ]] && words=("-dict=$seeds.dict")
  TMPDIR=$place/tmp ASAN_OPTIONS=quarantine_size_mb=4 UBSAN_OPTIONS=print_stacktrace=1 "$place/bin/$1" \
    -max_total_time="$seconds" -len_control=0 -timeout=30 -print_final_stats=1 \
    "-artifact_prefix=$place/found/$1-" "${words[@]}" "$seeds" > "$place/log/$1" 2>&1
}

row='%-20s %10s %8s %8s  %s\n'
failed=0
# shellcheck disable=SC2059
printf "$row" target runs edges floor verdict
for target in "${targets[@]}"; do
  verdict=ok
  run "$target" || verdict="FAULT: $(sed -n 's/.*Test unit written to //p' "$place/log/$target" | tail -n 1)"
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$place/log/$target" | tail -n 1)
  edges=$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$place/log/$target" | tail -n 1)
  floor=$(awk -v name="$target" '$1 == name { print $2 }' fuzz/floors.txt)
  if [[ $verdict == ok && -z $floor ]]; then verdict='NO FLOOR'; fi
  if [[ $verdict == ok && ${edges:-0} -lt $floor ]]; then verdict='BELOW ITS FLOOR'; fi
  [[ $verdict == ok ]] || failed=1
  # shellcheck disable=SC2059
  printf "$row" "$target" "${runs:--}" "${edges:--}" "${floor:--}" "$verdict"
done
exit $failed
