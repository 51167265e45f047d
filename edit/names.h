#ifndef RULEFORGE_EDIT_NAMES_H
#define RULEFORGE_EDIT_NAMES_H

#include "app/filterd.h"
#include "text/str.h"

// Finds what a command names by the names and captions the template gives it,
// exactly and case-sensitively, or by its number as the editor shows it:
// variants count the clause's labelled variants from 1, lists are 1 and 2.
// When nothing matches, the result is null or -1 and why says what exists.

// The record of the clause or companion named name in set; null for a fixed
// or unknown clause.
tClauseData* FindClause(DListtClauseData& set, const String& name, String& why);
// The index (0 to 3) of the record's variant named by label or number.
int FindVariant(const tClauseData& record, const String& name, String& why);
// 0 or 1 for the record's list named by caption or number.
int FindList(const tClauseData& record, const String& name, String& why);
// The set of that name; null with why listing the sets.
DListtClauseData* FindSet(tFilterData& document, const String& name, String& why);
// An entry number from 1 up, as a position from 0; -1 when text is not one.
int EntryNumber(const String& text);

#endif
