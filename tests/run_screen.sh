#!/usr/bin/env bash
# Runs one screen case of ruleforge-edit: the program in a pseudo-terminal of
# tmux, 80x24 unless the case says otherwise, driven by keys, its screen
# compared as text. A case is a folder of data files (symbolic links are
# copied as the files they point to):
#   args     the command-line words, one a line
#   size     "COLUMNS LINES" to start with (80 24 when absent)
#   env      VAR=value words for the program's environment, one a line
#   steps    one step a line:
#              keys KEY...    tmux key names (Down, Enter, Space, C-l, ...)
#              type TEXT      the text typed as it stands
#              screen FILE    waits until the screen is exactly FILE
#              escapes FILE   the same with the attributes and colours, as
#                             tmux writes them in escape sequences
#              cursor X Y     waits until the cursor is in column X of line Y
#                             (from 0), where the next typed key goes
#              resize C L     the terminal becomes C columns, L lines
#              shell COMMAND  runs COMMAND in the work folder
#              signal NAME    sends the signal to the program
#              exit STATUS    waits for the program to end with STATUS
#   after    run in the work folder last; fails the case by exiting non-zero
# After the program ends, the terminal's modes are in the file stty (stty -a).
# With RULEFORGE_SCREEN_RECORD set, a screen file the case lacks is recorded
# into the case from the screen as it stands a second after the keys before it.
# Usage: run_screen.sh <dir of the programs> <case dir>
set -u
bindir=$(realpath "$1") case=$(realpath "$2")
command -v tmux >/dev/null || { echo "--- skipped: no tmux"; exit 77; }
work=$(realpath "$(mktemp -d)")
socket="ruleforge-screen-$$"
trap 'tmux -L "$socket" kill-server 2>/dev/null; rm -rf "$work"' EXIT
cp -rL "$case"/. "$work"/
cd "$work" || exit 2
args=() envs=()
[ -f args ] && mapfile -t args < args
[ -f env ] && mapfile -t envs < env
read -r columns lines < <(cat size 2>/dev/null || echo 80 24)
# The program is killed after RULEFORGE_CASE_TIMEOUT seconds (default 120):
# a run that hangs must not outlive its case in the tmux server, which a
# killed test run leaves behind.
printf '%q ' timeout --foreground -k 5 "${RULEFORGE_CASE_TIMEOUT:-120}" env "${envs[@]}" \
  "$bindir/ruleforge-edit" "${args[@]}" >command
echo '; echo $? >status; stty -a >stty; sleep 600' >>command
tmux -L "$socket" -f /dev/null new-session -d -x "$columns" -y "$lines" -c "$work" \
  "bash $work/command" || exit 2
tmux -L "$socket" set-option -g status off >/dev/null

fail=0
wait_screen() {  # wait_screen <expected file> [-e]
  local i
  if [ -n "${RULEFORGE_SCREEN_RECORD:-}" ] && [ ! -e "$case/$1" ]; then
    sleep 1
    tmux -L "$socket" capture-pane -p ${2:-} >"$case/$1"
    cp "$case/$1" "$1"
  fi
  for i in $(seq 100); do
    tmux -L "$socket" capture-pane -p ${2:-} >actual.screen
    cmp -s "$1" actual.screen && return 0
    sleep 0.1
  done
  echo "--- the screen differs from $1:"; diff "$1" actual.screen; fail=1
  return 1
}
wait_cursor() {  # wait_cursor <"X Y">
  local i
  for i in $(seq 100); do
    [ "$(tmux -L "$socket" display-message -p '#{cursor_x} #{cursor_y}')" = "$1" ] && return 0
    sleep 0.1
  done
  echo "--- the cursor is at $(tmux -L "$socket" display-message -p '#{cursor_x} #{cursor_y}'), expected $1"
  fail=1
  return 1
}
wait_exit() {  # wait_exit <status>
  local i
  for i in $(seq 100); do
    [ -s status ] && break
    sleep 0.1
  done
  if [ "$(cat status 2>/dev/null)" != "$1" ]; then
    echo "--- status $(cat status 2>/dev/null), expected $1"; fail=1
  fi
}
# Keys sent before the program has taken the terminal would be echoed and lost.
for i in $(seq 100); do
  tmux -L "$socket" capture-pane -p | grep -q '[^ ]' && break
  sleep 0.1
done
while read -r step rest; do
  case $step in
    keys) read -ra keys <<<"$rest"; tmux -L "$socket" send-keys "${keys[@]}" ;;
    type) tmux -L "$socket" send-keys -l "$rest" ;;
    screen) wait_screen "$rest" || break ;;
    escapes) wait_screen "$rest" -e || break ;;
    cursor) wait_cursor "$rest" || break ;;
    resize) tmux -L "$socket" resize-window -x "${rest% *}" -y "${rest#* }" ;;
    shell) bash -c "$rest" ;;
    signal) pane=$(tmux -L "$socket" display-message -p '#{pane_pid}')
      pkill -"$rest" -P "$(pgrep -P "$pane" -x timeout)" -x ruleforge-edit ;;
    exit) wait_exit "$rest" ;;
    *) echo "--- unknown step: $step"; fail=1 ;;
  esac
done <steps
if [ -x after ] && ! ./after; then echo "--- the files after the run differ (after failed)"; fail=1; fi
exit $fail
