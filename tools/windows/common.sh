# What the scripts of this folder share; sourced by them.

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=$(cd "$tools/../.." && pwd)
root=${SET32_WINE_ROOT:-$project/build/windows/root}
prefix64=$project/build/windows/prefix64
prefix_version=2  # counts up whenever make-prefix.sh or what it lays changes
symbols=$project/build/windows/marlett.ttf
cd "$project"
source tools/need.sh

say() { echo "windows: $*"; }
fail() {
  echo "windows: $*" >&2
  exit 1
}

# choose_windows [--64]: sets preset and chosen. 32-bit programs come first, since they are the product; where their wine
# can't be had, 64-bit ones run in the machine's own.
choose_windows() {
  if [ "${1:-}" = --64 ]; then
    chosen="64-bit programs, as asked"
  elif "$tools/make-root.sh"; then
    preset=mingw-i686
    chosen="32-bit programs"
    return
  else
    chosen="64-bit programs, since 32-bit wine can't be had here"
  fi
  preset=mingw-x86_64
  say "$chosen"
  need /usr/lib/wine/wine64 wine wine64
  need xvfb-run xvfb
  need xauth xauth
  need /usr/share/fonts/truetype/wqy/wqy-microhei.ttc fontconfig fonts-wqy-microhei
  mkdir -p "$(dirname "$prefix64")"
  is_current "$prefix64" && return
  need_symbols
  in_wine64 "$tools/make-prefix.sh" "$prefix64" "$prefix_version" "$symbols" > "$prefix64.log" 2>&1 ||
    fail "the prefix could not be made, see $prefix64.log"
}

# is_current PREFIX: it stands, with all that this version lays.
is_current() {
  local version
  version=$(cat "$1/.ready" 2> /dev/null) && [ "${version:-0}" -ge "$prefix_version" ]
}

# The signs on the buttons of captions. Of the package that holds them only that font: a prefix that has its others too
# shows texts in bitmaps without Chinese letters.
need_symbols() {
  local folder=$project/build/windows/fonts
  [ -s "$symbols" ] && return
  mkdir -p "$folder"
  need_lists
  (cd "$folder" && quietly download.log apt-get download fonts-wine) ||
    fail "the package fonts-wine can't be had, see ${folder#"$project/"}/download.log"
  dpkg-deb --fsys-tarfile "$folder"/fonts-wine_*.deb | tar -xO ./usr/share/wine/fonts/marlett.ttf > "$symbols.new"
  mv "$symbols.new" "$symbols"
  rm -r "$folder"
}

# build_for PRESET [TARGET...]: builds, and prints the folder.
build_for() {
  build "$@"
  echo "$project/build/${1#mingw-}"
}

# What stands before each command on Windows, so that nothing is sent to another machine. A script empties it when a
# person asks for this machine's own network.
network=("$tools/in-silence.sh")

# on_windows PRESET COMMAND...: runs a command where wine runs that preset's programs, on a virtual display and with a
# fresh prefix of its own. Other places can have displays whose sockets are seen here and whose locks are not, so the
# search for a free number begins anywhere.
on_windows() {
  local preset=$1 display=(xvfb-run -a -n $((100 + RANDOM)) -s "-screen 0 1280x1024x24")
  shift
  with_prefix "$preset" "$@"
}

# on_display PRESET COMMAND...: the same on this machine's display, whose own window manager frames the windows. One that
# is reached by way of the network needs this machine's own.
on_display() {
  local preset=$1 display=() shares_display=1 network=("${network[@]}") number=${DISPLAY##*:}
  [ -S "/tmp/.X11-unix/X${number%%.*}" ] || network=()
  shift
  with_prefix "$preset" bash -c '
    wine reg add "HKCU\Software\Wine\X11 Driver" /v Managed /d Y /f > /dev/null 2>&1
    exec "$@"' managed "$@"
}

with_prefix() {
  local preset=$1
  shift
  if [ "$preset" = mingw-i686 ]; then
    inside_root "$root" "${display[@]}" "$tools/fresh-prefix.sh" /root/prefix "$@"
  else
    in_wine64 "${display[@]}" "$tools/fresh-prefix.sh" "$prefix64" "$@"
  fi
}

in_wine64() { WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" "${network[@]}" "$@"; }

# inside_root FOLDER COMMAND...: runs a command inside the folder, with the project at its own path. The mounts belong to
# a mount namespace of the command's, so that none is left behind whatever happens.
inside_root() {
  local folder=$1
  shift
  PROJECT=$project FOLDER=$folder SHARES_DISPLAY=${shares_display:-} "${network[@]}" \
    unshare --mount --propagation private bash -c '
    set -e
    mount -t proc proc "$FOLDER/proc"
    mount --rbind /dev "$FOLDER/dev"
    echo "127.0.0.1 localhost $(uname -n)" > "$FOLDER/etc/hosts"  # a search looks up this machine by its name
    mkdir -p "$FOLDER$PROJECT"
    mount --bind "$PROJECT" "$FOLDER$PROJECT"
    if [ -n "$SHARES_DISPLAY" ] && [ -d /tmp/.X11-unix ]; then
      mkdir -p "$FOLDER/tmp/.X11-unix"
      mount --bind /tmp/.X11-unix "$FOLDER/tmp/.X11-unix"
      key=${XAUTHORITY:-$HOME/.Xauthority}
      if [ -e "$key" ]; then touch "$FOLDER/root/.Xauthority"; mount --bind "$key" "$FOLDER/root/.Xauthority"; fi
      mount -o bind,ro /home "$FOLDER/home"  # for the pictures that a person opens
    fi
    exec chroot "$FOLDER" /usr/bin/env -i HOME=/root PATH=/usr/bin:/bin:/usr/sbin:/sbin LANG=C.UTF-8 \
      ${SHARES_DISPLAY:+DISPLAY="$DISPLAY"} WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" bash -c "cd \"\$0\" && exec \"\$@\"" "$PROJECT" "$@"' inside "$@"
}
