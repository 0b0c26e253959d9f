#!/bin/bash
# Makes the folder in which 32-bit Windows programs run: a small Debian of its own with wine, since 32-bit wine often
# can't be installed beside a machine's newer 64-bit libraries. Does nothing when the folder stands already.
#
# The folder is $SET32_WINE_ROOT, by default build/windows/root. Its mirror is the machine's own package source.
# Needs root, since debootstrap does.
set -euo pipefail
source "$(dirname "$0")/common.sh"

if [ -e "$root/.ready" ]; then
  say "32-bit wine stands in $root"
  exit 0
fi
[ "$(id -u)" = 0 ] || fail "a folder with 32-bit wine can only be made by root"
need debootstrap debootstrap

release=$(. /etc/os-release && echo "$VERSION_CODENAME")
mirror=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT) $(CREATED_BY)' |
  awk -v release="$release" '$2 == release && $3 == "main" && $4 == "Packages" { print $1; exit }')
[ -n "$mirror" ] || fail "no package source for $release main on this machine"

# debootstrap fetches with wget, which doesn't read the package manager's settings.
setting() { apt-config shell value "$1" | sed -n "s/^value='\(.*\)'\$/\1/p"; }
proxy=$(setting Acquire::http::Proxy)
[ -z "$proxy" ] || export http_proxy=$proxy
proxy=$(setting Acquire::https::Proxy)
[ -z "$proxy" ] || export https_proxy=$proxy
certificates=$(setting Acquire::https::CaInfo)

say "making a folder with 32-bit wine in $root"
rm -rf "$root"
mkdir -p "$root"
debootstrap --arch=i386 --variant=minbase ${certificates:+--certificate="$certificates"} \
  --include=wine32,wine,xvfb,xauth,fontconfig,fonts-wqy-microhei "$release" "$root" "$mirror" > "$root.log" 2>&1 ||
  { tail -5 "$root.log" >&2; fail "debootstrap failed, see $root.log"; }
rm -rf "$root"/var/cache/apt/archives/*.deb

# The prefix with fonts that hold the panel's texts, made once and copied for each run.
cp "$tools/prefix.reg" "$root/root/prefix.reg"
inside_root env WINEPREFIX=/root/prefix wineboot --init > "$root.log" 2>&1 ||
  { tail -5 "$root.log" >&2; fail "the prefix could not be made, see $root.log"; }
inside_root env WINEPREFIX=/root/prefix wine regedit /S /root/prefix.reg >> "$root.log" 2>&1
inside_root env WINEPREFIX=/root/prefix wineserver -w
touch "$root/.ready"
say "made, $(du -sh "$root" | cut -f1)"
