#!/bin/bash
# Packs what a host's author gets and looks at it as the author would: unpacks the zip, finds every path that the guide
# and the changelog name, builds the example with find_package and by the command that the guide tells, and runs it.
#
#   check-install.sh PRESET
set -euo pipefail
source "$(dirname "$0")/common.sh"

preset=$1
build=$(build_for "$preset" set32 set32_dib)
unpacked=$build/unpacked
rm -rf "$unpacked" "$build/example"
package=$("$tools/../package.sh" "$preset")
mkdir -p "$unpacked"
(cd "$unpacked" && cmake -E tar xf "$package")
folder=$unpacked/$(basename "$package" .zip)
guide=$folder/docs/host-guide.md

# Every word in backticks with a slash in it, and every target of a link.
named=$(sed -n 's/`\([A-Za-z0-9._-]*\/[A-Za-z0-9._/-]*\)`/\n@\1\n/gp' "$guide" | sed -n 's/^@//p'
        sed 's/](\([^)#:]*\))/\n@\1\n/g' "$guide" | sed -n 's/^@/docs\//p')
[ -n "$named" ] || fail "the guide names no path"
for path in $named; do
  [ -e "$folder/$path" ] || fail "$preset: the guide names $path, which isn't in the package"
done

quietly "$build/example.log" cmake -S "$folder/apps/example-host" -B "$build/example" -G Ninja \
  -DCMAKE_TOOLCHAIN_FILE="$project/cmake/$preset.cmake" -Dset32_DIR="$folder/lib/cmake/set32" &&
  quietly "$build/example.log" cmake --build "$build/example" ||
  fail "$preset: the example can't be built from the package, see ${build#"$project/"}/example.log"
heard=$(on_windows "$preset" timeout 120 wine "$build/example/example-host.exe" --once | tr -d '\r' | tail -n 1)
[[ $heard =~ ^heard\ [1-9][0-9]*\ messages$ ]] || fail "$preset: the example built from the package says '$heard'"

command=$(sed -n '/^    i686-w64-mingw32-g++/,/-o example-host/p' "$guide" | sed 's/\\$//' | xargs)
[ -n "$command" ] || fail "the guide tells no command"
command=${command//i686-/${preset#mingw-}-}
(cd "$folder" && $command) || fail "$preset: the guide's command doesn't build the example"
say "$preset: $(basename "$package") builds the example host, which $heard"
