#ifndef RULEFORGE_CHECK_TPLCHECK_H
#define RULEFORGE_CHECK_TPLCHECK_H

#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"

// Finds the traps of a template as read: texts that later runs read back as
// data or leave with unfilled places, variants whose states come back at the
// wrong position, clauses that data cannot reach or that produce nothing, and
// substitutions whose order matters. Lines come from the notes of the reading.
void CheckTemplate(tFilterData& document, const tCheckNotes& notes, tFindings& findings);

#endif
