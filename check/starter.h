#ifndef RULEFORGE_CHECK_STARTER_H
#define RULEFORGE_CHECK_STARTER_H

#include <cstdio>

#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"

// Writes a starting data file for the document's template to out: the
// section's head lines, every main clause with its variants off and its lists
// empty under a "##" line that names its variants and list captions, and the
// label clauses commented out under a "###~~~~NAME" line that shows how to add
// a label data set. The result reads as it stands: a clause that no data
// line can name (check/hints.h CanBeNamed), or whose name an earlier clause
// of its section already has, is left out with a finding at its template
// line.
void WriteStarter(tFilterData& document, const tCheckNotes& notes, tFindings& findings, FILE* out);

#endif
