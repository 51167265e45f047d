#ifndef RULEFORGE_CHECK_LOOKUPS_H
#define RULEFORGE_CHECK_LOOKUPS_H

#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"

// Finds the entries of the data sets as read that go into a resolved place
// (${0R}, ${1R}) of a variant in effect and that look like an address or a
// network but are not one: a network such as 10.0.0.0/8 goes to name lookup,
// which fails, and 10.1.0.256 goes into the filter as an address. Looks up
// nothing itself. Lines come from the notes of the reading.
void CheckLookups(tFilterData& document, const tCheckNotes& notes, tFindings& findings);

#endif
