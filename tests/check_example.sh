#!/usr/bin/env bash
# Runs the bundled example as the README does. examples/office.flt is the
# program's own output for examples/office.tpl, so a run on it gives it back
# byte for byte, with nothing on standard error and status 0. With -r the
# example's one host name, localhost, stays a name where the file shows
# 127.0.0.1. The resolving run needs localhost to be 127.0.0.1 here; where it
# is not, that run is skipped (exit status 77).
# Usage: check_example.sh <ruleforge binary> <examples dir>
set -u
ruleforge=$1 examples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail=0
run() {  # run <expected output> <options...>
  local expected=$1
  shift
  "$ruleforge" "$@" -t "$examples/office.tpl" <"$examples/office.flt" >"$work/out" 2>"$work/err"
  echo $? >>"$work/err"
  echo 0 | cmp -s - "$work/err" || { echo "--- $* stderr and status:"; cat "$work/err"; fail=1; }
  cmp -s "$expected" "$work/out" || { echo "--- $* output:"; diff "$expected" "$work/out" | head -40; fail=1; }
}
sed 's/127\.0\.0\.1/localhost/g' "$examples/office.flt" >"$work/unresolved.flt"
run "$work/unresolved.flt" -r
if getent ahostsv4 localhost | grep -q '^127\.0\.0\.1 '; then
  run "$examples/office.flt"
elif [ $fail -eq 0 ]; then
  exit 77
fi
exit $fail
