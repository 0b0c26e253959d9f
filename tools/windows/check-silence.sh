#!/bin/bash
# Proves that the watch over what is sent can hear: a host that a person lets search the network is heard, as it is
# built it is not.
#
#   check-silence.sh PRESET
set -euo pipefail
source "$(dirname "$0")/common.sh"

preset=$1
host=$(build_for "$preset" example-host)/bin/example-host.exe
on_windows "$preset" wine "$host" --once > /dev/null || fail "$preset: the example host isn't silent"
network=("$tools/in-silence.sh" --heard)
on_windows "$preset" wine "$host" --once --network real > /dev/null || fail "$preset: the network isn't searched"
say "$preset: hosts search the network only when a person asks for it"
