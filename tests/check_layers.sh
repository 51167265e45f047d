#!/usr/bin/env bash
# Keeps the layers in order: every project include of a source points down.
# text/ uses nothing of the project; parse/ uses text/; resolve/ uses text/
# and the messages of app/common.h; rules/ uses those and parse/ and resolve/;
# output/ (the write half) uses rules/ and below; app/ (the document) uses
# output/ and below. A folder of a program beside
# ruleforge (check/, update/, ...) may use every layer, and only the entry
# points in app/ may use such a folder.
# Usage: check_layers.sh <source dir>
set -u
cd "$1" || exit 2
allowed() {  # allowed <folder of the source> <included path>
  local from=$1 to=$2
  case $from:$to in
    text:text/*) return 0 ;;
    parse:text/* | parse:parse/*) return 0 ;;
    resolve:text/* | resolve:resolve/* | resolve:app/common.h) return 0 ;;
    rules:text/* | rules:parse/* | rules:resolve/* | rules:rules/* | rules:app/common.h) return 0 ;;
    output:text/* | output:parse/* | output:resolve/* | output:rules/* | output:output/*) return 0 ;;
    output:app/common.h) return 0 ;;
    app:text/* | app:parse/* | app:resolve/* | app:rules/* | app:output/* | app:app/*) return 0 ;;
    text:* | parse:* | resolve:* | rules:* | output:* | app:*) return 1 ;;
    *:app/ruleforge*) return 1 ;;
    *) return 0 ;;
  esac
}
fail=0
while IFS= read -r file; do
  from=${file%%/*}
  while IFS= read -r to; do
    # An entry point of app/ may use the folder of its own program.
    [[ $file == app/ruleforge*.cpp ]] && continue
    if ! allowed "$from" "$to"; then
      echo "$file includes \"$to\", which is above its layer"
      fail=1
    fi
  done < <(sed -n 's/^#include "\([^"]*\)".*/\1/p' "$file")
done < <(find . -path ./tests -prune -o -path ./fuzz -prune -o -path ./bench -prune -o \
           -path './build*' -prune -o \( -name '*.cpp' -o -name '*.h' \) -print | sed 's|^\./||' | sort)
exit $fail
