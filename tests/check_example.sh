#!/usr/bin/env bash
# Runs the bundled example the way the README does. examples/office.flt is the
# program's own output for examples/office.tpl, so a run on it must give it
# back byte for byte, with an empty standard error and status 0.
# The example's only host name is localhost, in resolved places: with -r it
# stays "localhost" there, so that run must give the file with every 127.0.0.1
# turned back into localhost (the data holds no literal 127.0.0.1). The run with
# resolution on needs localhost to be 127.0.0.1 on this machine; where it is
# not, that part is skipped (exit status 77).
# Usage: check_example.sh <ruleforge binary> <examples dir>
set -u
ruleforge=$1 examples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail=0

run() {  # run <name> <expected output> <ruleforge options...>
  local name=$1 expected=$2
  shift 2
  "$ruleforge" "$@" -t "$examples/office.tpl" <"$examples/office.flt" \
    >"$work/$name.out" 2>"$work/$name.err"
  local status=$?
  if [ "$status" -ne 0 ]; then echo "--- $name: exit status $status"; fail=1; fi
  if [ -s "$work/$name.err" ]; then echo "--- $name: standard error:"; cat "$work/$name.err"; fail=1; fi
  if ! cmp -s "$expected" "$work/$name.out"; then
    echo "--- $name: output differs from $expected:"
    diff "$expected" "$work/$name.out" | head -40
    fail=1
  fi
}

if grep -q '^###.*127\.0\.0\.1' "$examples/office.flt"; then
  echo "--- office.flt: the data must not hold 127.0.0.1 for the -r check to work"
  fail=1
fi
sed 's/127\.0\.0\.1/localhost/g' "$examples/office.flt" >"$work/unresolved.flt"
run without-resolution "$work/unresolved.flt" -r

if command -v getent >/dev/null 2>&1 && getent ahostsv4 localhost | grep -q '^127\.0\.0\.1 '; then
  run with-resolution "$examples/office.flt"
else
  echo "localhost is not 127.0.0.1 here: the run with resolution is skipped"
  [ $fail -eq 0 ] && exit 77
fi
exit $fail
