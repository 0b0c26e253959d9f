#!/bin/bash
# Runs a command in a wine prefix in which the source manager finds the data source. Wine's manager knows two names of
# sources alone: ours lies under the first, and the second is none. Files of the prefix may be shared with another one,
# so they are removed rather than written over.
#
#   lay-source.sh PROGRAMS PAGES COMMAND...
set -e
programs=$1
pages=$2
shift 2
bits=32
[ "$(od -A n -t x1 -j "$(($(od -A n -t u4 -j 60 -N 4 "$programs/data-source.ds") + 4))" -N 2 "$programs/data-source.ds" |
  tr -d ' ')" != 6486 ] || bits=64
folder=$WINEPREFIX/drive_c/windows/twain_$bits
mkdir -p "$folder"
rm -f "$folder"/*
cp "$programs/data-source.ds" "$folder/sane.ds"
cp "$programs/set32.dll" "$folder"
export WINEDLLOVERRIDES="mscoree,mshtml=;sane.ds=n;gphoto2.ds="
export SCANNER_PAGES="Z:$pages"
exec "$@"
