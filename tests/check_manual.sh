#!/usr/bin/env bash
# Keeps a manual page in step with its program: groff renders it without a
# warning; OPTIONS and SYNOPSIS name every option app/PROGRAM.cpp accepts and
# OPTIONS no other. For a program that runs the library's stages (ruleforge,
# and another given with the word library), DIAGNOSTICS holds every message
# code of its entry point, the rest of app/ (but the other programs' entry
# points), rules/, output/, resolve/ and its own folder (update/ for ruleforge-update)
# with each literal piece of its text, and no code the program lacks, and FILES
# names every file the program uses; for another program, DIAGNOSTICS holds the
# messages of its entry point. For ruleforge-check, FINDINGS names every
# finding.
# Usage: check_manual.sh <source dir> [program, ruleforge when absent [library]].
# Exit status 77 (skipped) without groff.
set -u
src=$1
program=${2:-ruleforge}
page=$src/$program.1
command -v groff >/dev/null || { echo "groff is not installed: skipped"; exit 77; }
fail=0
complain() { echo "$*"; fail=1; }

warnings=$(groff -man -ww -z "$page" 2>&1)
[ -z "$warnings" ] || complain "groff warns about the page:"$'\n'"$warnings"
# The page as plain text on very long lines, without hyphenation.
text=$(groff -man -Tascii -P-cbou -rLL=2000n -rHY=0 "$page" 2>/dev/null)
section() { awk -v s="$1" '/^[A-Z]/ { on = ($0 == s) } on' <<<"$text" | tr -s ' \n' '  '; }

options=$(grep -oE 'strcmp\(argv\[i\], "-[^"]*"\)' "$src/app/$program.cpp" | grep -oE -- '-[a-z]+')
[ -n "$options" ] || complain "no options found in app/$program.cpp"
for option in $options; do
  section OPTIONS | grep -qE -- "(^| )$option( |$)" || complain "OPTIONS lacks $option"
  section SYNOPSIS | grep -qF -- "$option" || complain "SYNOPSIS lacks $option"
done
for option in $(section OPTIONS | grep -oE -- '(^| )-[a-z]+ ' | tr -d ' ' | sort -u); do
  grep -qxF -- "$option" <<<"$options" || complain "OPTIONS documents $option, which the program lacks"
done

# Every Error(n, ...) and Warning(n, ...) call with its literal pieces, from the
# sources with comments removed and adjacent literals joined.
library=0
[ "$program" = ruleforge ] || [ "${3:-}" = library ] && library=1
sources=("$src/app/$program.cpp")
if [ $library = 1 ]; then
  own=$src/${program#ruleforge-}
  [ "$program" != ruleforge ] && [ -d "$own" ] && sources+=("$own"/*.cpp)
  for file in "$src"/app/*.cpp "$src"/rules/*.cpp "$src"/output/*.cpp "$src"/resolve/*.cpp; do
    [[ $file == "$src"/app/ruleforge*.cpp ]] || sources+=("$file")
  done
fi
calls=$(for file in "${sources[@]}"; do
          sed -E 's:(^|[[:space:]])//.*$::' "$file" | tr '\n' ' ' |
            sed -E 's/"[[:space:]]+"//g' | grep -oE '\b(Error|Warning)\([0-9]+,[^;]*;'
        done | sort -u)
[ -n "$calls" ] || complain "no Error or Warning calls found in the sources"
diagnostics=$(section DIAGNOSTICS)
labels=""
while IFS= read -r call; do
  code=$(sed -E 's/^[A-Za-z]+\(([0-9]+),.*/\1/' <<<"$call")
  label="Warning($code):"
  [ "${call%%(*}" = Error ] && label="ERROR($code):"
  labels="$labels$label"$'\n'
  grep -qF -- "$label" <<<"$diagnostics" || complain "DIAGNOSTICS lacks $label"
  while IFS= read -r piece; do
    piece=$(tr -s ' ' ' ' <<<"${piece:1:${#piece}-2}")
    grep -qF -- "$piece" <<<"$diagnostics" || complain "DIAGNOSTICS lacks the text '$piece' of $label"
  done < <(grep -oE '"[^"]+"' <<<"${call#*,}")
done <<<"$calls"
# ruleforge-check: FINDINGS holds the opening words of every finding, as the
# table of note texts and each findings.Add call of check/ begin them (up to
# the first quote, colon, parenthesis or quoted detail; one word says nothing).
if [ "$program" = ruleforge-check ]; then
  findings=$(section FINDINGS)
  while IFS= read -r opening; do
    grep -qF -- "$opening" <<<"$findings" || complain "FINDINGS lacks the finding '$opening'"
  done < <(for file in "$src"/check/*.cpp; do
             sed -E 's:(^|[[:space:]])//.*$::' "$file" | tr '\n' ' ' | sed -E 's/"[[:space:]]+"//g' |
               grep -oE '(\{Note[A-Za-z]+,[[:space:]]*|Add\([^,]*,[[:space:]]*)"[^"]*' | sed -E 's/^.*"//'
           done | sed -E 's/[:(@\\].*$//; s/[[:space:]]+$//' | awk 'NF >= 2' | sort -u)
fi
[ $library = 1 ] || exit $fail
for label in $(grep -oE '(ERROR|Warning)\([0-9]+\):' <<<"$diagnostics" | sort -u); do
  grep -qxF -- "$label" <<<"$labels" || complain "DIAGNOSTICS documents $label, which the program lacks"
done

for name in mkrule.tpl /tmp/template.dmp; do
  grep -qF "\"$name\"" "${sources[@]}" || continue
  section FILES | grep -qF -- "$name" || complain "FILES lacks $name"
done
exit $fail
