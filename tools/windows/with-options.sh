#!/bin/bash
# Runs a command in a prefix that holds what an installation lays there: the run-time options of a device whose paper
# source a person chooses.
#
#   with-options.sh COMMAND...
set -eu
for user in "$WINEPREFIX"/drive_c/users/*/; do
  mkdir -p "$user/Temp"
  printf '[OPTION]\r\nLLDriverInterface=1\r\nEnablePaperSource=1\r\n' > "$user/Temp/QUIRNHTp.INI"
done
exec "$@"
