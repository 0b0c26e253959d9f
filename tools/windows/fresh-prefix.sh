#!/bin/bash
# Runs a command in a wine prefix of its own, a copy that goes when the command ends. Files are shared with the original;
# the registry is a copy, since wine writes a file with two names in place.
#
#   fresh-prefix.sh PREFIX COMMAND...
set -e
original=$1
shift
WINEPREFIX=$(mktemp -d "$original.XXXXXX")
export WINEPREFIX
trap 'rm -rf "$WINEPREFIX"' EXIT
cp -al "$original/." "$WINEPREFIX/"
cp --remove-destination "$original"/*.reg "$WINEPREFIX/"
status=0
"$@" || status=$?
wineserver -k || true
exit "$status"
