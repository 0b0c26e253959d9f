#!/bin/bash
# Makes the folder in which 32-bit Windows programs run: a small Debian of its own with wine, since 32-bit wine often
# can't be installed beside a machine's newer 64-bit libraries. Does nothing when the folder stands already but bring its
# prefix up to date, fails where there can be none.
#
# The folder is $SET32_WINE_ROOT, by default build/windows/root. Its mirror is the machine's own package source.
set -euo pipefail
source "$(dirname "$0")/common.sh"

[ "$(id -u)" = 0 ] || fail "32-bit wine stands in a folder that only root can make and enter"
unshare --mount --propagation private true || fail "32-bit wine needs mounts of its own, which aren't allowed here"

# make_prefix FOLDER
make_prefix() {
  need_symbols
  quietly "$root.log" inside_root "$1" "$tools/make-prefix.sh" /root/prefix "$prefix_version" "$symbols" ||
    { tail -5 "$root.log" >&2; fail "the prefix could not be made, see $root.log"; }
}

if [ -e "$root/.ready" ]; then
  is_current "$root/root/prefix" || make_prefix "$root"
  say "32-bit wine stands in $root"
  exit 0
fi
[ ! -e "$root" ] || [ -z "$(ls -A "$root")" ] || fail "$root holds something else than 32-bit wine"
need debootstrap debootstrap

# The first address of the system's main packages; a list of mirrors in a file stands for the first in it.
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
mirror=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT) $(CREATED_BY)' |
  awk -v release="$release" '
    $1 ~ /^(https?|file|mirror\+file):/ && $2 == release && $3 == "main" && $4 == "Packages" { print $1; exit }')
case $mirror in
  mirror+file:*) mirror=$(grep -m 1 -o -E '^https?://[^[:space:]]+' "${mirror#mirror+file:}") || mirror= ;;
esac
[ -n "$mirror" ] || fail "no package source for $release main on this machine"

# debootstrap fetches with wget, which doesn't read the package manager's settings.
setting() { apt-config shell value "$1" | sed -n "s/^value='\(.*\)'\$/\1/p"; }
proxy=$(setting Acquire::http::Proxy)
[ -z "$proxy" ] || export http_proxy=$proxy
proxy=$(setting Acquire::https::Proxy)
[ -z "$proxy" ] || export https_proxy=$proxy
certificates=$(setting Acquire::https::CaInfo)

say "making a folder with 32-bit wine in $root, which takes some minutes"
made=$root.new
rm -rf "$made"
mkdir -p "$made"
quietly "$root.log" unshare --mount --propagation private debootstrap --arch=i386 --variant=minbase \
  ${certificates:+--certificate="$certificates"} \
  --include=wine32,wine,xvfb,xauth,fontconfig,fonts-wqy-microhei "$release" "$made" "$mirror" ||
  { tail -5 "$root.log" >&2; fail "debootstrap failed, see $root.log"; }
rm -rf "$made"/var/cache/apt/archives/*.deb
make_prefix "$made"
touch "$made/.ready"
rm -rf "$root"
mv "$made" "$root"
say "made, $(du -sh "$root" | cut -f1)"
