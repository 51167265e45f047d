#ifndef RULEFORGE_CHECK_ENDLINES_H
#define RULEFORGE_CHECK_ENDLINES_H

#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"

// Finds the end lines ("###~~~") of the data that are missing before the next
// clause's head line, or written with blanks, so that a clause takes the lines
// after it as its own: one finding at the line where the end line was due,
// naming the lines swallowed, in place of the findings about those lines.
void CheckEndLines(tFilterData& document, const tCheckNotes& notes, tFindings& findings);

#endif
