#!/usr/bin/env bash
# Runs one end-to-end case. A case is a folder of data files; a symbolic link
# in it is copied as the file it points to, so a case can use the project's own
# files (examples/). The run:
#   args      the command-line words, one a line (@WORK@: the work folder)
#   stdin     standard input (/dev/null when absent)
#   stdout, stderr, status   what the run must print and return (stdout not
#                  with stdout-to or closed-stdout)
# Where a case needs them:
#   program        the program to run (ruleforge when absent)
#   setup          run in the work folder first, to make inputs too large to keep
#   after          run in the work folder last; checks the files left there and
#                  fails the case by exiting non-zero
#   needs          shell commands, one a line; when one fails (a missing tool, no
#                  right to mount) the case is skipped with exit status 77
#   stdout-to      a path standard output goes to instead (e.g. /dev/full)
#   closed-stdin, closed-stdout   run with that stream closed
#   dump           the expected /tmp/template.dmp
#   no-dump        no /tmp/template.dmp may be written
#   roundtrip      the output fed back in must reproduce itself
#   dns            a delay in milliseconds: the run happens in a network
#                  namespace of the case's own, whose DNS server
#                  (tests/dns/server.py) answers after that delay and logs every
#                  query to the file queries; skipped where namespaces are missing
#   faults         the value of RULEFORGE_FAULTS for the fault shim
#                  ruleforge_faults.so, which the run then preloads
#                  (tests/fault_shim.cpp)
#   no-memcheck, no-sanitize   not run under valgrind, or in a sanitizer build
# RULEFORGE_WRAPPER, when set, is put in front of the program (e.g. valgrind).
# Each run is killed after RULEFORGE_CASE_TIMEOUT seconds (default 120), so a
# hang fails its case and leaves nothing running. A case that runs with -d, or
# checks the dump, holds an exclusive lock on /tmp/template.dmp.lock throughout,
# so that test runs of other build folders and other users of the fixed dump
# path wait for each other.
# Usage: run_case.sh <dir of the programs> <case dir>
set -u
bindir=$1 case=$2 here=$(cd "$(dirname "$0")" && pwd)
work=$(realpath "$(mktemp -d)")
trap 'rm -rf "$work"' EXIT
cp -rL "$case"/. "$work"/
cd "$work" || exit 2
export PATH="$bindir:$PATH"

if [ -f needs ]; then
  while IFS= read -r need; do
    bash -c "$need" >/dev/null 2>&1 || { echo "--- skipped: this machine fails \"$need\""; exit 77; }
  done <needs
fi
preload=()
if [ -f dns ]; then
  source "$here/dns/netns.sh"
  trap 'dns_down; rm -rf "$work"' EXIT
  dns_up "$(cat dns)" "$work/queries"
  up=$?
  [ $up = 0 ] || exit $up
  preload=(ip netns exec "$dns_ns")
fi
if [ -f faults ]; then
  # The sanitizers' runtime wants to be the first library; the shim goes first.
  preload+=(env LD_PRELOAD="$bindir/ruleforge_faults.so" RULEFORGE_FAULTS="$(cat faults)"
           ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0")
fi
args=()
[ -f args ] && mapfile -t args < args
args=("${args[@]//@WORK@/$work}")
program=ruleforge
[ -f program ] && program=$(cat program)
limit=${RULEFORGE_CASE_TIMEOUT:-120}
uses_dump=0
[ -f dump ] || [ -f no-dump ] && uses_dump=1
for arg in "${args[@]}"; do [ "$arg" = -d ] && uses_dump=1; done
if [ $uses_dump = 1 ]; then
  exec 9>/tmp/template.dmp.lock && flock 9 || { echo "--- cannot lock /tmp/template.dmp.lock"; exit 1; }
fi
run() {  # run <stdin file> <stdout file>
  local in=$1 out=$2
  if [ -f closed-stdin ]; then
    timeout -k 5 "$limit" "${preload[@]}" ${RULEFORGE_WRAPPER:-} "$program" "${args[@]}" <&- >"$out" 2>actual.stderr
  elif [ -f closed-stdout ]; then
    timeout -k 5 "$limit" "${preload[@]}" ${RULEFORGE_WRAPPER:-} "$program" "${args[@]}" <"$in" >&- 2>actual.stderr
  else
    timeout -k 5 "$limit" "${preload[@]}" ${RULEFORGE_WRAPPER:-} "$program" "${args[@]}" <"$in" >"$out" 2>actual.stderr
  fi
  local status=$?
  echo $status >actual.status
  if [ $status -eq 124 ] || [ $status -eq 137 ]; then
    echo "--- $program ran past $limit seconds and was killed"
  fi
}

if [ -x setup ] && ! ./setup; then echo "--- setup failed"; exit 1; fi
input=/dev/null
[ -f stdin ] && input=stdin
if [ -f dump ] || [ -f no-dump ]; then rm -f /tmp/template.dmp; fi
target=actual.stdout
[ -f stdout-to ] && target=$(cat stdout-to)
run "$input" "$target"

fail=0
check() {  # check <expected> <actual>
  if ! cmp -s "$1" "$2"; then
    echo "--- $1 differs:"; diff "$1" "$2" | head -40 | cut -c1-200; fail=1
  fi
}
[ -f stdout-to ] || [ -f closed-stdout ] || check stdout actual.stdout
check stderr actual.stderr
check status actual.status
if [ -f dump ]; then
  if [ -f /tmp/template.dmp ]; then check dump /tmp/template.dmp; else echo "--- no dump written"; fail=1; fi
fi
if [ -f no-dump ] && [ -e /tmp/template.dmp ]; then echo "--- a dump was written"; fail=1; fi
if [ -x after ] && ! ./after; then echo "--- the files after the run differ (after failed)"; fail=1; fi
if [ -f roundtrip ]; then
  run stdout again.stdout
  check stdout again.stdout
fi
exit $fail
