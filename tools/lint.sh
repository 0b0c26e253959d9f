#!/usr/bin/env bash
# Formatting, and the static checks of every source that Linux or 32-bit Windows compiles. A file that both compile is
# checked once. Benchmarks are left out: their library's macros don't pass.
set -euo pipefail
cd "$(dirname "$0")/.."
source tools/need.sh

need_test_tools
need_lint_tools
need_cross_tools

git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

# sources_of PRESET NAME: writes the project's sources that a preset compiles to a list, and how it does so to a
# database, whose commands have no compiler launcher: the checker would take that for the compiler.
sources_of() {
  quietly build/lint.log cmake --preset "$1" -B "build/lint/$2" -DSET32_BENCH=OFF -DCMAKE_CXX_COMPILER_LAUNCHER= \
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON || { tail -n 20 build/lint.log >&2; exit 1; }
  sed -n "s|.*\"file\": \"$PWD/\(.*\)\".*|\1|p" "build/lint/$2/compile_commands.json" | grep -v '^build/' \
    > "build/lint/$2.files"
}

# check NAME [ARGUMENT...]: checks the files that the input names.
check() {
  local name=$1
  shift
  xargs -P "$(nproc)" -n 2 clang-tidy -p "build/lint/$name" --quiet "$@" 2> >(grep -v 'warnings generated' >&2)
}

sources_of release linux
sources_of mingw-i686 windows

echo "Checking ..."
{ cat build/lint/linux.files; git ls-files 'fuzz/*.cpp'; } | check linux
# The words of Windows messages carry handles and pointers, which only a cast gets out of them. Signs are g++'s matter.
headers=$(i686-w64-mingw32-g++-posix -print-file-name=include/c++)
grep -vxFf <(grep -v win32 build/lint/linux.files) build/lint/windows.files |
  check windows --checks=-performance-no-int-to-ptr --extra-arg=-Wno-sign-conversion \
    --extra-arg=--target=i686-w64-mingw32 "--extra-arg=-isystem$headers" \
    "--extra-arg=-isystem$headers/i686-w64-mingw32"
