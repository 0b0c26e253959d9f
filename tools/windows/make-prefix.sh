#!/bin/bash
# Makes a wine prefix with fonts that hold the panel's texts, to be copied for each run, or brings one up to date. Ends
# when all of its processes have ended, since they would keep later programs from finding a display that isn't there yet.
#
#   make-prefix.sh PREFIX VERSION SYMBOL-FONT
set -e
tools=$(cd "$(dirname "$0")" && pwd)
export WINEPREFIX=$1
if [ ! -e "$1/.ready" ]; then
  rm -rf "$1"
  mkdir -p "$1"
  wineboot --init
fi
cp "$3" "$1/drive_c/windows/Fonts/"
wine regedit /S "$tools/prefix.reg"
wineserver -w
echo "$2" > "$1/.ready"
