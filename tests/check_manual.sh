#!/usr/bin/env bash
# Keeps the manual page in step with the program:
# - OPTIONS lists exactly the options that app/ruleforge.cpp accepts, and the
#   SYNOPSIS shows each of them;
# - DIAGNOSTICS has one entry per message code that app/, rules/ and resolve/
#   report, tagged "ERROR(n): ..." or "Warning(n): ...", whose text holds every
#   literal piece of the message, and no entry for a code the program lacks;
# - every file named under FILES is a file name the program uses;
# - groff renders the page without a warning (when groff is installed).
# The page is read from its source with a small roff reader (fonts, quoting and
# the escapes the page uses), so the check needs no formatter.
# Usage: check_manual.sh <source dir>
set -u
src=$1
page=$src/ruleforge.1
fail=0
complain() { echo "$*"; fail=1; }

# Prints "<section>\t<text>" for every output line of the page, with
# "<section>\tTAG <text>" for the tag of a .TP paragraph.
render() {
  awk '
    function args(line,    out, i, c, n, quoted) {
      # Splits macro arguments the way roff does: blanks separate, double
      # quotes group, and "" inside a quoted argument is one quote.
      n = 0; delete A; quoted = 0; cur = ""; inarg = 0
      for (i = 1; i <= length(line); i++) {
        c = substr(line, i, 1)
        if (quoted) {
          if (c == "\"" && substr(line, i + 1, 1) == "\"") { cur = cur "\""; i++ }
          else if (c == "\"") { quoted = 0 }
          else cur = cur c
        } else if (c == " " || c == "\t") {
          if (inarg) { A[++n] = cur; cur = ""; inarg = 0 }
        } else if (c == "\"" && !inarg) { quoted = 1; inarg = 1 }
        else { cur = cur c; inarg = 1 }
      }
      if (inarg) A[++n] = cur
      return n
    }
    function text(s) {
      gsub(/\\f[BIRP]/, "", s); gsub(/\\\(aq/, "\047", s); gsub(/\\\(bu/, "*", s)
      gsub(/\\-/, "-", s); gsub(/\\&/, "", s); gsub(/\\c$/, "", s); gsub(/\\e/, "\\", s)
      return s
    }
    function emit(s) {
      printf "%s\t%s%s\n", section, (tag ? "TAG " : ""), text(s); tag = 0
    }
    /^\.\\"/ { next }
    /^\.SH / { n = args(substr($0, 5)); section = A[1]; tag = 0; next }
    /^\.TP/ { tag = 1; next }
    /^\.(B|I|SM|SB) / {
      n = args(substr($0, index($0, " ") + 1)); s = A[1]
      for (i = 2; i <= n; i++) s = s " " A[i]
      emit(s); next
    }
    /^\.(BI|BR|IB|IR|RB|RI) / {
      n = args(substr($0, index($0, " ") + 1)); s = ""
      for (i = 1; i <= n; i++) s = s A[i]
      emit(s); next
    }
    /^\./ { next }
    { emit($0) }
  ' "$page"
}
rendered=$(render)
section_text() { printf '%s\n' "$rendered" | awk -F'\t' -v s="$1" '$1 == s { print $2 }'; }
squeeze() { tr -s ' \t\n' '   ' | sed 's/^ //; s/ $//'; }

# Options: the words that main compares against.
program_options=$(grep -oE 'strcmp\(argv\[i\], "-[^"]*"\)' "$src/app/ruleforge.cpp" |
                  grep -oE '"-[^"]*"' | tr -d '"' | sort -u)
[ -n "$program_options" ] || complain "no options found in app/ruleforge.cpp"
page_options=$(section_text OPTIONS | sed -n 's/^TAG \(-[^ ]*\).*/\1/p' | sort -u)
for option in $program_options; do
  grep -qxF -- "$option" <<<"$page_options" || complain "OPTIONS lacks the option $option"
  section_text SYNOPSIS | grep -qF -- "$option" || complain "SYNOPSIS lacks the option $option"
done
for option in $page_options; do
  grep -qxF -- "$option" <<<"$program_options" ||
    complain "OPTIONS documents $option, which the program does not accept"
done

# Messages: every Error(n, ...) and Warning(n, ...) call, with its literal
# pieces (adjacent literals joined), from the sources with comments removed.
calls=$(for file in "$src"/app/*.cpp "$src"/rules/*.cpp "$src"/resolve/*.cpp; do
          sed -E 's:(^|[[:space:]])//.*$::' "$file" | tr '\n' ' ' |
            sed -E 's/"[[:space:]]+"//g' | grep -oE '\b(Error|Warning)\([0-9]+,[^;]*;'
        done | sort -u)
[ -n "$calls" ] || complain "no Error or Warning calls found in the sources"
diagnostics=$(section_text DIAGNOSTICS | sed -n 's/^TAG //p')
codes=""
while IFS= read -r call; do
  [ -n "$call" ] || continue
  kind=${call%%(*}
  code=$(sed -E 's/^[A-Za-z]+\(([0-9]+),.*/\1/' <<<"$call")
  [ "$kind" = Error ] && label="ERROR($code):" || label="Warning($code):"
  codes="$codes$label"$'\n'
  entry=$(grep -F -- "$label " <<<"$diagnostics" | head -1 | squeeze)
  if [ -z "$entry" ]; then
    complain "DIAGNOSTICS lacks an entry for $label"
    continue
  fi
  while IFS= read -r piece; do
    piece=$(printf '%s' "${piece:1:${#piece}-2}" | squeeze)
    [ -n "$piece" ] || continue
    grep -qF -- "$piece" <<<"$entry" || complain "DIAGNOSTICS entry $label lacks the text '$piece'"
  done < <(grep -oE '"[^"]*"' <<<"${call#*,}")
done <<<"$calls"
while IFS= read -r entry; do
  label=$(grep -oE '^(ERROR|Warning)\([0-9]+\):' <<<"$entry")
  [ -n "$label" ] || continue
  grep -qxF -- "$label" <<<"$codes" || complain "DIAGNOSTICS documents $label, which the program does not report"
done <<<"$diagnostics"

# Files: each one named under FILES is a string of the program.
while IFS= read -r name; do
  [ -n "$name" ] || continue
  grep -qF -- "\"$name\"" "$src"/app/*.cpp || complain "FILES names $name, which the program does not use"
done < <(section_text FILES | sed -n 's/^TAG \([^ ]*\).*/\1/p')

if command -v groff >/dev/null 2>&1; then
  warnings=$(groff -man -ww -z "$page" 2>&1)
  [ -z "$warnings" ] || complain "groff warns about the page:"$'\n'"$warnings"
else
  echo "groff is not installed: the rendering check is skipped"
fi
exit $fail
