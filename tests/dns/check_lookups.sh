#!/usr/bin/env bash
# Runs ruleforge on tests/data/lookups.{tpl,flt} against the DNS server of
# server.py (20 ms per answer) in a network namespace of its own, and checks the
# output, the warnings in the order the expansion meets the names, the exit
# status, and that the server saw exactly one query per distinct name that is
# looked up (lookups.queries, sorted). Then with -r: the same run must send no
# query at all. Exits 77 (skipped) when network namespaces are not available.
# Usage: check_lookups.sh <ruleforge>
set -u
program=$1
here=$(cd "$(dirname "$0")" && pwd)
data=$here/../data
work=$(mktemp -d)
source "$here/netns.sh"
trap 'dns_down; rm -rf "$work"' EXIT
dns_up 20 "$work/queries"
status=$?
if [ $status = 77 ]; then echo "SKIPPED: network namespaces are not available"; exit 77; fi
[ $status = 0 ] || exit 1

failed=0
check() {  # check <what> <expected file> <actual file>
  if ! cmp -s "$2" "$3"; then
    echo "--- $1 differs:"
    diff "$2" "$3" | head -20
    failed=1
  fi
}
dns_exec timeout 60 "$program" -t "$data/lookups.tpl" <"$data/lookups.flt" >"$work/stdout" \
  2>"$work/stderr"
echo $? >"$work/status"
LC_ALL=C sort "$work/queries" >"$work/sorted"
check "standard output" "$here/lookups.stdout" "$work/stdout"
check "standard error" "$here/lookups.stderr" "$work/stderr"
check "exit status" <(echo 0) "$work/status"
check "queries" "$here/lookups.queries" "$work/sorted"

: >"$work/queries"
dns_exec timeout 60 "$program" -r -t "$data/lookups.tpl" <"$data/lookups.flt" >/dev/null \
  2>"$work/stderr"
echo $? >"$work/status"
check "exit status with -r" <(echo 0) "$work/status"
check "standard error with -r" /dev/null "$work/stderr"
check "queries with -r" /dev/null "$work/queries"
exit $failed
