#ifndef RULEFORGE_OUTPUT_SAVE_H
#define RULEFORGE_OUTPUT_SAVE_H

#include "output/output.h"
#include "rules/clauslst.h"

// Saves the whole output of sets to the named file through a temporary file
// beside it and a backup of the old file. With keepUnchanged, a file that
// already holds the new output is left as it is, backup included. Returns 0,
// or -1 after an error it reported.
int SaveOutput(const char* fileName, DListOfDListtClauseData& sets, const tOutputFrame& frame,
               int keepUnchanged);

#endif
