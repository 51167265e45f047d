#ifndef RULEFORGE_UPDATE_SAVE_H
#define RULEFORGE_UPDATE_SAVE_H

#include "app/filterd.h"
#include "update/target.h"

// Saves the document's output over the target: writes it to a temporary file
// that only the target's users can open, syncs it, and puts it in place with a
// backup of the old file (update/replace.h). A target that already holds the
// output is left as it is, backup included. An error is reported as it
// happens; the file is then as it was, or the messages say where each version
// is.
void SaveOver(tFilterData& document, tUpdateTarget& target);

#endif
