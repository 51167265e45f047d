#ifndef RULEFORGE_CHECK_STARTER_H
#define RULEFORGE_CHECK_STARTER_H

#include <cstdio>

#include "app/filterd.h"

// Writes a starting data file for the document's template to out: the
// section's head lines, every main clause with its variants off and its lists
// empty under a "##" line that names its variants and list captions, and the
// label clauses commented out under a "###~~~~NAME" line that shows how to add
// a label data set. The result reads as it stands.
void WriteStarter(tFilterData& document, FILE* out);

#endif
