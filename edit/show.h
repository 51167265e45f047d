#ifndef RULEFORGE_EDIT_SHOW_H
#define RULEFORGE_EDIT_SHOW_H

#include <cstdio>

#include "app/filterd.h"

// The data of a data set, or of one clause, as text for people: one line per
// clause, variant and list, variants and lists numbered as commands name them.
void ShowSet(DListtClauseData& set, FILE* out);
// first is the record in the data set, not a companion record.
void ShowClause(const tClauseData& first, FILE* out);

#endif
