#!/bin/bash
# Installs what a host's author gets, and builds the example host from that alone by the command that the guide tells.
#
#   check-install.sh PRESET
set -euo pipefail
source "$(dirname "$0")/common.sh"

preset=$1
build=$(build_for "$preset" set32 set32_dib)
installed=$build/installed
rm -rf "$installed"
cmake --install "$build" --prefix "$installed" > "$build/install.log"

guide=$installed/share/doc/set32/host-guide.md
command=$(sed -n '/^    i686-w64-mingw32-g++/,/-o example-host/p' "$guide" | sed 's/\\$//' | xargs)
[ -n "$command" ] || fail "the guide tells no command"
command=${command//i686-/${preset#mingw-}-}
command=${command//DIR/$installed}
cp apps/example-host/main.cpp "$installed"
(cd "$installed" && $command) || fail "$preset: the example can't be built from the installed folder"
[ -e "$installed/bin/set32.dll" ] || fail "$preset: set32.dll isn't installed"
say "$preset: the example host is built from the installed folder"
