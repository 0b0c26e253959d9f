# What the scripts need on a bare Debian 12. Each function installs what is missing and says so.

mkdir -p build

# need COMMAND-OR-FILE PACKAGE...: installs the packages unless the command or file is there.
need() {
  local what=$1
  shift
  if command -v "$what" > /dev/null 2>&1 || [[ -e "$what" ]]; then return; fi
  echo "Installing $* ..."
  local as_root=()
  if [[ $(id -u) -ne 0 ]]; then as_root=(sudo); fi
  "${as_root[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "$@" > /dev/null
}

need_build_tools() {
  need g++ g++
  need cmake cmake
  need ninja ninja-build
}

need_test_tools() {
  need /usr/include/gtest/gtest.h libgtest-dev
  need /usr/include/gmock/gmock.h libgmock-dev
  need /usr/include/benchmark/benchmark.h libbenchmark-dev
}

need_fuzz_tools() { need clang++ clang libclang-rt-14-dev; }

need_lint_tools() {
  need clang-format clang-format
  need clang-tidy clang-tidy
}
