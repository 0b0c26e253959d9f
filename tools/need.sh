# What the scripts share: what they need on a bare Debian 12, each function installing what is missing and saying so;
# long work with signs of life; and the build.

mkdir -p build
PATH=$PATH:/usr/sbin:/sbin  # where the package manager's helpers lie, also after a plain su

# quietly LOG COMMAND...: runs it with its output in LOG, and says every half minute how far it has come.
quietly() {
  local log=$1 watcher status=0
  shift
  : > "$log"
  while sleep 30 > /dev/null 2>&1 && kill -0 $$ 2> /dev/null; do tail -n 1 "$log" | cut -c 1-110 >&2; done &
  watcher=$!
  "$@" >> "$log" 2>&1 || status=$?
  kill "$watcher"
  wait "$watcher" 2> /dev/null || true
  return "$status"
}

# need_lists: the newest lists of packages, once. A source that can't be reached is no matter as long as the packages can
# be had.
need_lists() {
  as_root=()
  [[ $(id -u) -eq 0 ]] || as_root=(sudo)
  if [[ -z ${updated:-} ]]; then quietly build/install.log "${as_root[@]}" apt-get update -q || true; fi
  updated=1
}

# need COMMAND-OR-FILE PACKAGE...: installs the packages unless the command or file is there.
need() {
  local what=$1 log=build/install.log as_root
  shift
  if command -v "$what" > /dev/null 2>&1 || [[ -e "$what" ]]; then return; fi
  if [[ $(id -u) -ne 0 ]] && ! command -v sudo > /dev/null; then
    echo "Missing here, and only root can install it: apt-get install --no-install-recommends $*" >&2
    exit 1
  fi
  echo "Installing $* ..." >&2
  need_lists
  quietly "$log" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q -o DPkg::Lock::Timeout=300 --no-install-recommends "$@" ||
    { tail -n 5 "$log" >&2; exit 1; }
}

# want FILE PACKAGE...: the same for what the build can go without.
want() {
  (need "$@") || echo "Going on without ${*:2}." >&2
}

need_build_tools() {
  need g++ g++
  need cmake cmake
  need ninja ninja-build
}

# What edits lines at the prompt.
want_prompt_tools() {
  want /usr/include/histedit.h libedit-dev
}

need_test_tools() {
  want_prompt_tools
  need /usr/include/gtest/gtest.h libgtest-dev
  need /usr/include/gmock/gmock.h libgmock-dev
  need /usr/include/benchmark/benchmark.h libbenchmark-dev
}

need_cross_tools() {
  need_build_tools
  need i686-w64-mingw32-g++-posix g++-mingw-w64-i686-posix
  need x86_64-w64-mingw32-g++-posix g++-mingw-w64-x86-64-posix
  need /usr/src/googletest/googlemock/src/gmock-all.cc googletest
}

need_fuzz_tools() {
  need clang++ clang
  need "$(clang++ -print-resource-dir)/lib/linux/libclang_rt.fuzzer-$(uname -m).a" libclang-rt-14-dev
}

need_lint_tools() {
  need clang-format clang-format
  need clang-tidy clang-tidy
}

# build PRESET [-DOPTION=VALUE...] [TARGET...]: configures and builds all, or the targets.
build() {
  local preset=$1 log=build/$1.log options=() targets=() word
  shift
  for word in "$@"; do
    if [[ $word == -D* ]]; then options+=("$word"); else targets+=("$word"); fi
  done
  echo "Building ${targets[*]:-all} ($preset), log in $log ..." >&2
  { quietly "$log" cmake --preset "$preset" "${options[@]}" &&
    quietly "$log" cmake --build --preset "$preset" ${targets[0]:+--target "${targets[@]}"}; } ||
    { grep -E 'error|Error|FAILED|undefined' "$log" | head -n 20 >&2; exit 1; }
}
