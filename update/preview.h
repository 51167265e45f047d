#ifndef RULEFORGE_UPDATE_PREVIEW_H
#define RULEFORGE_UPDATE_PREVIEW_H

#include "app/filterd.h"
#include "update/target.h"

// Shows what saving the document's output over the target would change,
// touching nothing: a unified diff of the file as it is against the output,
// made by diffutils' diff and written to standard output; nothing when the two
// are the same. Both sides are labelled with the name given, so the diff
// applies with patch. Reports error 8 when the output could not be made and
// error 19 when diff could not be run.
void Preview(tFilterData& document, tUpdateTarget& target);

#endif
