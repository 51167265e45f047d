#ifndef RULEFORGE_CHECK_STDINPUT_H
#define RULEFORGE_CHECK_STDINPUT_H

// Whether standard input is a data file to check when none is named: 1 when
// it is a pipe, a FIFO or a regular file and holds at least one byte (which
// stays unread), else 0 (a terminal, /dev/null, an empty or a closed input),
// so that a template-only check in a script without input still works.
int StandardInputHoldsData();

#endif
