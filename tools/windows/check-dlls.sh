#!/bin/bash
# Looks at the built libraries: exactly the two exports, nothing imported but the system's own, linked from the libraries
# of src alone (so without the stage of scripts and tests), under 1 MB each, and no move of a wide register that asks for
# memory aligned as no stack there is.
set -euo pipefail
source "$(dirname "$0")/common.sh"

largest=1048576
system='^(advapi32|comctl32|gdi32|iphlpapi|kernel32|msvcrt|shell32|user32|ws2_32)\.dll$'
expected='uiFixSetting uiIsSettingOpen'
product=$(sed -n 's/^ *set32_library(\(set32_[a-z0-9_]*\).*/\1/p' src/CMakeLists.txt)

# check PRESET OBJDUMP
check() {
  local built dll objdump=$2 exports linked imports foreign size aligned
  built=$(build_for "$1" set32)
  dll=$built/bin/set32.dll
  exports=$("$objdump" -p "$dll" | sed -n '/\[Ordinal\/Name Pointer\]/,/^$/s/^\t\[ *[0-9]*\] *\(+base\[ *[0-9]*\] *[0-9a-f]* \)\{0,1\}//p' | sort | xargs)
  [ "$exports" = "$expected" ] || fail "$1: exports '$exports'"
  linked=$(sed -n 's|.*lib\(set32_[a-z0-9_]*\)\.a.*|\1|p' "$built/apps/dll/set32.map" | sort -u)
  grep -qx set32_host <<< "$linked" || fail "$1: the link map tells nothing"
  foreign=$(grep -vxF "$product" <<< "$linked" || true)
  [ -z "$foreign" ] || fail "$1: linked with $(xargs <<< "$foreign")"
  imports=$("$objdump" -p "$dll" | sed -n 's/^\tDLL Name: //p' | tr 'A-Z' 'a-z' | sort -u)
  foreign=$(grep -v -E "$system" <<< "$imports" || true)
  [ -z "$foreign" ] || fail "$1: imports $foreign"
  size=$(stat -c %s "$dll")
  [ "$size" -lt "$largest" ] || fail "$1: $size bytes"
  "$objdump" -h "$dll" | grep -q '\.rsrc' || fail "$1: no version resource"
  aligned=$("$objdump" -d "$dll" | grep -cE 'vmov(dqa|ap[sd]).*(\(.*%[yz]mm|%[yz]mm.*\()' || true)
  [ "$aligned" = 0 ] || fail "$1: $aligned aligned moves of wide registers"
  say "$1: set32.dll has its two exports and $size bytes, and imports $(xargs <<< "$imports")"
}

check mingw-i686 i686-w64-mingw32-objdump
check mingw-x86_64 x86_64-w64-mingw32-objdump
