#!/usr/bin/env bash
# Builds the parts of the attack with the address and undefined-behaviour sanitizers, shares the seconds among them and
# prints one table. A part that fell, crashed, hung or can't say what it saw fails the whole; one that this machine
# doesn't allow is told as such.
set -euo pipefail
cd "$(dirname "$0")/.."
source tools/need.sh

total=${1:-}
if [[ $# -ne 1 || ! $total =~ ^[1-9][0-9]{0,5}$ ]]; then
  echo "Usage: ./test --attack SECONDS" >&2
  exit 2
fi
need_build_tools
need_test_tools
(need ip iproute2) || true  # without it one part is not tried
build debug attack

bin=build/debug/bin
log=build/attack.log
parts=()
for part in "$bin"/attack_*; do  # those that still have a source
  [[ -e attack/$(basename "$part").cpp ]] && parts+=("$part")
done
((${#parts[@]} > 0)) || { echo "no parts in $bin" >&2; exit 1; }
: > "$log"
status=0
left=$total
echo "The attack of $total seconds, log in $log:"
for ((i = 0; i < ${#parts[@]}; ++i)); do
  part=${parts[i]}
  share=$((left / (${#parts[@]} - i)))
  ((share > 0)) || share=1
  begun=$SECONDS
  ended=0
  # Three times its share and a minute more is a hang.
  line=$(timeout $((share * 3 + 60)) "$part" "$share" 2>> "$log" | tee -a "$log" | tail -n 1) || ended=$?
  left=$((left - (SECONDS - begun)))
  name=$(basename "$part")
  name=${name#attack_}
  text=${line#"$name": }
  figures=${text%% - *} verdict=${text##* - }
  case $ended in
    0) [[ $text == *' - held' ]] || ended=1 ;;
    77) figures=$text verdict=- ;;
    124) verdict="FELL: hung" ;;
    *) [[ $text == *' - FELL: '* ]] || verdict="FELL: status $ended" ;;
  esac
  printf '%-12s %-90s %s\n' "$name" "$figures" "$verdict"
  if ((ended != 0 && ended != 77)); then
    status=1
    tail -n 40 "$log" | cut -c 1-200 >&2
  fi
done
exit "$status"
