# What the scripts of this folder share; sourced by them.

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=$(cd "$tools/../.." && pwd)
root=${SET32_WINE_ROOT:-$project/build/windows/root}
export DEBIAN_FRONTEND=noninteractive

say() { echo "windows: $*"; }
fail() {
  echo "windows: $*" >&2
  exit 1
}

# need PROGRAM PACKAGE: installs the package when the program isn't there.
need() {
  command -v "$1" > /dev/null && return
  say "installing $2"
  [ "$(id -u)" = 0 ] || fail "$1 is missing; install the package $2"
  apt-get -qq install -y --no-install-recommends "$2" > /dev/null 2>&1 ||
    { apt-get -qq update && apt-get -qq install -y --no-install-recommends "$2" > /dev/null; } ||
    fail "the package $2 can't be installed"
}

# inside_root COMMAND...: runs a command inside the folder, with the project at its own path. The mounts belong to a
# mount namespace of the command's, so that none is left behind whatever happens.
inside_root() {
  PROJECT=$project FOLDER=$root unshare --mount --propagation private bash -c '
    set -e
    mount -t proc proc "$FOLDER/proc"
    mount --rbind /dev "$FOLDER/dev"
    mkdir -p "$FOLDER$PROJECT"
    mount --bind "$PROJECT" "$FOLDER$PROJECT"
    exec chroot "$FOLDER" /usr/bin/env -i HOME=/root PATH=/usr/bin:/bin:/usr/sbin:/sbin LANG=C.UTF-8 \
      WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" bash -c "cd \"\$0\" && exec \"\$@\"" "$PROJECT" "$@"' inside "$@"
}
