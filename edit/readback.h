#ifndef RULEFORGE_EDIT_READBACK_H
#define RULEFORGE_EDIT_READBACK_H

#include "app/filterd.h"
#include "text/str.h"

// What the parseable section makes of the editor's data, found by writing it
// with the section's own writer and reading it back with its own reader into
// a scratch file, never by repeating their rules.

// 1 when the record's variant states, written and read back, are the same
// for every labelled variant.
int StatesReadBack(const tClauseData& record);

// 1 when two lists of data sets hold the same data: the same names in the
// same order and, record by record (companions included), the same labelled
// variants on and the same entries. Otherwise 0, with why naming the first
// difference.
int SameData(const DListOfDListtClauseData& one, const DListOfDListtClauseData& other, String& why);

// 1 when the document's whole output, read back, gives the same data; else 0
// with why set.
int DataReadsBack(tFilterData& document, String& why);

#endif
