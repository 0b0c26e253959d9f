#!/bin/bash
# What a person waits for on real windows: opening, tabs, the advanced dialog, a change with 31 configurations; opening
# with the keys that a fresh installation has, in a network of its own; and each step of a drag.
#
#   tools/windows/measure-waits.sh [--64]
set -euo pipefail
source "$(dirname "$0")/common.sh"

case "${1:-}" in
  "" | --64) ;;
  *)
    sed -n '2,5s/^#\( \|$\)//p' "$0" >&2
    exit 2
    ;;
esac

need_cross_tools
choose_windows "$@"
build=$(build_for "$preset" set32 panel-waits scan-desk)
on_windows "$preset" wine "$build/bin/panel-waits.exe" | tr -d '\r'
say "the keys of a fresh installation, which search USB and the network"
network=("$tools/in-silence.sh" --heard)
on_windows "$preset" wine "$build/bin/panel-waits.exe" --driver-type 3 --rounds 3 | tr -d '\r'
exec "$tools/measure-drag.sh"
