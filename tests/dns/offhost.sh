#!/usr/bin/env bash
# Runs a command (the test suite, the benchmarks) under strace and fails when
# any process of it connects or sends to an internet address outside the
# loopback range (127.0.0.0/8, ::1): the tests look names up only inside
# network namespaces of their own. The command's own status does not count
# (cases that inject faults with strace cannot run under it); every
# destination it used is listed.
# Usage: offhost.sh <command> [argument ...]
set -u
log=$(mktemp)
trap 'rm -f "$log"' EXIT
strace -f -qq -e trace=connect,sendto,sendmsg -e signal=none -o "$log" "$@" >/dev/null 2>&1
# An internet address in a call's arguments; a sendto on a connected socket
# names none and goes where its connect said.
destinations=$(grep -oE 'sin_addr=inet_addr\("[^"]*"\)|inet_pton\(AF_INET6, "[^"]*"' "$log" |
                 grep -oE '"[^"]*"' | tr -d '"' | sort | uniq -c)
echo "destinations (count, address):"
echo "${destinations:-  none}"
off=$(grep -vE '^ *[0-9]+ (127\.[0-9.]+|::1)$' <<<"$destinations" | grep -v '^$')
if [ -n "$off" ]; then
  echo "sent off the machine:"; echo "$off"
  grep -E 'inet_addr|inet_pton' "$log" | grep -vE '"(127\.[0-9.]+|::1)"' | head -20
  exit 1
fi
