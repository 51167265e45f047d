#!/usr/bin/env bash
# Runs one end-to-end case: a folder holding the command-line words (args, one
# per line), any input files, standard input (stdin; /dev/null when absent) and
# the expected standard output, standard error and exit status (stdout, stderr,
# status). Optional: dump (the expected /tmp/template.dmp), stdout-to (a path
# that standard output goes to instead, e.g. /dev/full), closed-stdin (run with
# standard input closed), closed-stdout (run with standard output closed),
# setup (an executable run in the work folder before the run, to make inputs
# and expected files too large to check in), no-memcheck (not run under
# valgrind), no-dump (no /tmp/template.dmp may be written), roundtrip (the output fed back in must reproduce
# itself). RULEFORGE_WRAPPER, when set, is put in front of the program (e.g.
# valgrind). Usage: run_case.sh <dir of the ruleforge binary> <case dir>
set -u
bindir=$1 case=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$case"/. "$work"/
cd "$work" || exit 2
export PATH="$bindir:$PATH"

args=()
[ -f args ] && mapfile -t args < args
run() {  # run <stdin file> <stdout file>
  local in=$1 out=$2
  if [ -f closed-stdin ]; then
    ${RULEFORGE_WRAPPER:-} ruleforge "${args[@]}" <&- >"$out" 2>actual.stderr
  elif [ -f closed-stdout ]; then
    ${RULEFORGE_WRAPPER:-} ruleforge "${args[@]}" <"$in" >&- 2>actual.stderr
  else
    ${RULEFORGE_WRAPPER:-} ruleforge "${args[@]}" <"$in" >"$out" 2>actual.stderr
  fi
  echo $? >actual.status
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
if [ -f roundtrip ]; then
  run stdout again.stdout
  check stdout again.stdout
fi
exit $fail
