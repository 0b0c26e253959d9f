#!/bin/bash
# Runs inside the place that has wine and a display: every test program once, then every script with a transcript.
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

# A script may come with the lines that it prints. Lines about pixels of the font's own units differ between systems.
for script in "$project"/samples/scripts/*.scn; do
  [ -e "$script" ] && [ -e "$programs/scan-host.exe" ] || continue
  timeout "$patience" wine "$programs/scan-host.exe" "$script" > /dev/null
  result "$?" "scan-host $(basename "$script")"
done

if [ -e "$programs/example-host.exe" ]; then
  (cd "$programs" && timeout "$patience" wine example-host.exe --check)
  result "$?" example-host
fi

[ "$count" -gt 0 ] || { echo "failed no test program was built"; status=1; }
exit "$status"
