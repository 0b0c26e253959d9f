#!/bin/bash
# Runs inside the place that has wine and a display: every test program once, then the sample scripts.
# Prints a line for each; fails when one failed.
#
#   run-all.sh FOLDER-OF-PROGRAMS
set -u
programs=$1
tools=$(cd "$(dirname "$0")" && pwd)
project=$(cd "$tools/../.." && pwd)
patience=600
status=0
count=0

result() {
  if [ "$1" = 0 ]; then
    echo "ran $2"
  else
    echo "failed $2 ($1)"
    status=1
  fi
}

for program in "$programs"/*_tests.exe; do
  timeout "$patience" wine "$program" --gtest_brief=1 | tr -d '\r'
  result "${PIPESTATUS[0]}" "$(basename "$program" .exe)"
  count=$((count + 1))
done

# Their transcripts are compared by the scenarios; here the program itself runs, as a person starts it.
for script in "$project"/samples/*.scn; do
  timeout "$patience" wine "$programs/scan-host.exe" "$script" > /dev/null
  result "$?" "scan-host $(basename "$script")"
done

[ "$count" -gt 0 ] || { echo "failed no test program was built"; status=1; }
exit "$status"
