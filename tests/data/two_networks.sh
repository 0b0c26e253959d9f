#!/bin/sh
# Runs a program in a network namespace of its own, with a second one at the other end of a veth pair. Both are
# gone when it ends. Usage, inside "unshare -Urnu": two_networks.sh PROGRAM ARGUMENT... Exit status 77: not allowed here.
cannot() { echo "cannot have $1"; exit 77; }

unshare -n sleep "${SET32_TEST_NETWORK_SECONDS:-100}" &
other=$!
trap 'kill $other' EXIT
for i in 1 2 3 4 5 6 7 8 9 10; do
  [ "$(readlink /proc/$other/ns/net)" = "$(readlink /proc/self/ns/net)" ] || break
  sleep 0.1
done
ip link add here type veth peer name there || cannot "a pair of network devices"
ip link set there netns $other || cannot "a second network namespace"
ip addr add 10.77.0.1/24 dev here && ip link set here up && ip link set lo up || cannot "an address"
for host in 2 3 4; do
  nsenter -t $other -n ip addr add 10.77.0.$host/24 dev there || cannot "an address at the other end"
done
nsenter -t $other -n ip link set there up || cannot "the other end up"
echo localhost >/proc/sys/kernel/hostname  # a name that can be looked up
ip route add default dev here || cannot "a route"
SET32_TEST_OTHER_NETWORK=$other "$@"
