#!/bin/bash
# Runs a command in a network of its own that leads nowhere: what it sends to another machine, or to all of them, ends
# at a device that counts it. Fails when anything was sent; with --heard, when nothing was.
#
#   in-silence.sh [--heard] COMMAND...
#
# Where a network of its own isn't allowed the command runs without one, and --heard runs nothing.
set -u
self=$(realpath "$0")
cd "$(dirname "$self")/../.."
source tools/need.sh

expected=silence
if [ "${1:-}" = --heard ]; then
  expected=sound
  shift
fi

if [ -z "${SET32_SILENCE:-}" ]; then
  need ip iproute2
  own=(unshare --net)
  [ "$(id -u)" = 0 ] || own=(unshare --user --map-root-user --net)
  if "${own[@]}" env SET32_SILENCE=tried "$self" 2> /dev/null; then
    [ "$expected" = silence ] || set -- --heard "$@"
    exec "${own[@]}" env SET32_SILENCE=holds "$self" "$@"
  fi
  echo "No network of its own can be had here: only what the programs are told keeps them silent." >&2
  [ "$expected" = silence ] || exit 0
  exec "$@"
fi

# The other end of the pair stands for the world. Neither the system's own chatter on a new device is counted, nor wine,
# which asks as it starts what this machine's name stands for.
make_network() {
  local chatter=/proc/sys/net/ipv6/conf/default/disable_ipv6
  [ ! -w $chatter ] || echo 1 > $chatter
  ip link set lo up && ip link add world type veth peer name watch && ip link set world up && ip link set watch up &&
    ip address add 192.0.2.1/24 broadcast + dev watch && ip route add default via 192.0.2.2 dev watch &&
    ip rule add ipproto udp dport 53 unreachable
}
sent() { awk '$1 == "watch:" { print $11 }' /proc/self/net/dev; }

make_network || exit 1
[ "$SET32_SILENCE" = holds ] || exit 0
status=0
(unset SET32_SILENCE && exec "$@") || status=$?
count=$(sent)
case $expected in
  silence) [ "$count" = 0 ] || { echo "failed $count packets were sent to other machines"; status=1; } ;;
  sound) [ "${count:-0}" -gt 0 ] || { echo "failed nothing was heard of what was sent"; status=1; } ;;
esac
exit "$status"
