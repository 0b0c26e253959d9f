# What the scripts of this folder share; sourced by them.

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=$(cd "$tools/../.." && pwd)
root=${SET32_WINE_ROOT:-$project/build/windows/root}
export DEBIAN_FRONTEND=noninteractive
cd "$project"
source tools/need.sh

say() { echo "windows: $*"; }
fail() {
  echo "windows: $*" >&2
  exit 1
}

need_cross_tools() {
  need_build_tools
  need i686-w64-mingw32-g++-posix g++-mingw-w64-i686-posix
  need x86_64-w64-mingw32-g++-posix g++-mingw-w64-x86-64-posix
  need /usr/src/googletest/googlemock/src/gmock-all.cc googletest
}

# build_for PRESET [TARGET...]: builds, and prints the folder.
build_for() {
  local preset=$1 log=$project/build/$1.log
  shift
  { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } > "$log" 2>&1 ||
    { grep -E 'error|FAILED|undefined' "$log" | head -n 20 >&2; fail "$preset can't be built, see $log"; }
  echo "$project/build/${preset#mingw-}"
}

# on_windows PRESET COMMAND...: runs a command where wine runs that preset's programs, on a virtual display and with a
# fresh prefix of its own.
on_windows() {
  local preset=$1
  shift
  with_prefix "$preset" xvfb-run -a -s "-screen 0 1280x1024x24" "$@"
}

# on_display PRESET COMMAND...: the same on this machine's display, whose own window manager frames the windows.
on_display() {
  local preset=$1
  shift
  shares_display=1 with_prefix "$preset" bash -c '
    wine reg add "HKCU\Software\Wine\X11 Driver" /v Managed /d Y /f > /dev/null 2>&1
    exec "$@"' managed "$@"
}

with_prefix() {
  local preset=$1
  shift
  if [ "$preset" = mingw-i686 ]; then
    # The prefix's files are shared; its registry is a copy, since wine writes a file with two names in place.
    inside_root bash -c 'set -e; prefix=$(mktemp -d /root/run.XXXXXX); trap "rm -rf $prefix" EXIT
      cp -al /root/prefix/. "$prefix/"; cp --remove-destination /root/prefix/*.reg "$prefix/"
      export WINEPREFIX=$prefix
      status=0; "$@" || status=$?; wineserver -k || true; exit $status' run "$@"
  else
    local prefix=$project/build/windows/prefix64
    mkdir -p "$prefix"
    env WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" bash -c '
      [ -e "$WINEPREFIX/system.reg" ] || { wineboot --init; wine regedit /S "$0/prefix.reg"; } > /dev/null 2>&1
      exec "$@"' "$tools" "$@"
  fi
}

# inside_root COMMAND...: runs a command inside the folder, with the project at its own path. The mounts belong to a
# mount namespace of the command's, so that none is left behind whatever happens.
inside_root() {
  PROJECT=$project FOLDER=$root SHARES_DISPLAY=${shares_display:-} unshare --mount --propagation private bash -c '
    set -e
    mount -t proc proc "$FOLDER/proc"
    mount --rbind /dev "$FOLDER/dev"
    mkdir -p "$FOLDER$PROJECT"
    mount --bind "$PROJECT" "$FOLDER$PROJECT"
    if [ -n "$SHARES_DISPLAY" ] && [ -d /tmp/.X11-unix ]; then
      mkdir -p "$FOLDER/tmp/.X11-unix"
      mount --bind /tmp/.X11-unix "$FOLDER/tmp/.X11-unix"
      key=${XAUTHORITY:-$HOME/.Xauthority}
      if [ -e "$key" ]; then touch "$FOLDER/root/.Xauthority"; mount --bind "$key" "$FOLDER/root/.Xauthority"; fi
    fi
    exec chroot "$FOLDER" /usr/bin/env -i HOME=/root PATH=/usr/bin:/bin:/usr/sbin:/sbin LANG=C.UTF-8 \
      ${SHARES_DISPLAY:+DISPLAY="$DISPLAY"} WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" bash -c "cd \"\$0\" && exec \"\$@\"" "$PROJECT" "$@"' inside "$@"
}
