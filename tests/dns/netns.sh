# Sourced by tests/run_case.sh (a case's dns file), tests/dns/run.sh and the
# benchmark: a network namespace of this run's own, with its loopback up, the
# DNS server of server.py listening on its 127.0.0.1, and its own resolv.conf
# naming that server, hosts file (localhost only) and nsswitch.conf (files,
# then DNS), so that what a name resolves to does not depend on the machine.
# (ip netns exec lays a file over /etc only where /etc has it; without an
# /etc/hosts the server answers localhost itself.) Nothing is sent anywhere but
# that namespace's loopback.
#   dns_up DELAY_MS LOG_FILE   starts it all (returns 77 when namespaces are
#                              not available here); then run programs with
#                              dns_exec COMMAND...
#   dns_down                   removes it all; the caller's EXIT trap calls it,
#                              so that every exit path cleans up.
dns_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
dns_ns="" dns_server=""

# Every step may fail (the server may have ended already) without stopping the
# rest, also in a script run with set -e.
dns_down() {
  if [ -n "$dns_server" ]; then
    kill "$dns_server" 2>/dev/null || true
    wait "$dns_server" 2>/dev/null || true
    dns_server=""
  fi
  if [ -n "$dns_ns" ]; then
    ip netns del "$dns_ns" 2>/dev/null || true
    rm -rf "/etc/netns/$dns_ns" || true
    dns_ns=""
  fi
}

dns_exec() { ip netns exec "$dns_ns" "$@"; }

dns_up() {
  local delay=$1 log=$2 ready
  # Ended by a signal, the shell still runs its EXIT trap and so dns_down.
  trap 'exit 130' INT
  trap 'exit 143' TERM
  if [ "$(id -u)" != 0 ] || ! command -v ip >/dev/null || ! command -v python3 >/dev/null; then
    echo "network namespaces need root, ip and python3 here" >&2
    return 77
  fi
  dns_ns=ruleforge-dns-$$-$RANDOM
  if ! ip netns add "$dns_ns" 2>/dev/null; then
    echo "network namespaces are not available here (ip netns add failed)" >&2
    dns_ns=""
    return 77
  fi
  ip -n "$dns_ns" link set lo up || return 1
  mkdir -p "/etc/netns/$dns_ns" || return 1
  printf 'nameserver 127.0.0.1\n' >"/etc/netns/$dns_ns/resolv.conf"
  [ -e /etc/hosts ] && printf '127.0.0.1 localhost\n' >"/etc/netns/$dns_ns/hosts"
  [ -e /etc/nsswitch.conf ] && printf 'hosts: files dns\n' >"/etc/netns/$dns_ns/nsswitch.conf"
  ready=$(mktemp -u)
  : >"$log"
  # Started directly, not through dns_exec, so that its process id is the
  # server's own and dns_down can stop it.
  ip netns exec "$dns_ns" python3 "$dns_dir/server.py" "$delay" "$log" "$ready" &
  dns_server=$!
  for _ in $(seq 100); do
    [ -e "$ready" ] && { rm -f "$ready"; return 0; }
    kill -0 "$dns_server" 2>/dev/null || break
    sleep 0.05
  done
  echo "the DNS server did not start" >&2
  return 1
}
