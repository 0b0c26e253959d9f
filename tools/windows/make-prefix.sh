#!/bin/bash
# Makes a wine prefix with fonts that hold the panel's texts, to be copied for each run. Ends when all of its processes
# have ended, since they would keep later programs from finding a display that isn't there yet.
#
#   make-prefix.sh PREFIX
set -e
tools=$(cd "$(dirname "$0")" && pwd)
rm -rf "$1"
mkdir -p "$1"
export WINEPREFIX=$1
wineboot --init
wine regedit /S "$tools/prefix.reg"
wineserver -w
touch "$1/.ready"
