#ifndef RULEFORGE_CHECK_ENTRIES_H
#define RULEFORGE_CHECK_ENTRIES_H

#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"

// Finds the entries of the data sets as read that hold list separators other
// than commas: several ';', or a ';' not followed by a number of bits from 0
// to 32 (10.1.0.0;16 is a network), or addresses run together
// (192.0.2.53192.0.2.54). Such an entry becomes one broken rule.
// Lines come from the notes of the reading.
void CheckEntries(tFilterData& document, const tCheckNotes& notes, tFindings& findings);

#endif
