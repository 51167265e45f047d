#ifndef RULEFORGE_RULES_LOOKUPS_H
#define RULEFORGE_RULES_LOOKUPS_H

#include <functional>

#include "rules/clauslst.h"
#include "rules/progress.h"
#include "text/str.h"

// Hands expect every text that expanding all data sets will pass to the
// resolver's Lookup, in the order the expansion meets them, repeats included:
// the entries of the value places that an in-effect value text mentions as
// ${0R} or ${1R}, cleaned as the expansion cleans them. Changes nothing.
void ForEachLookup(const DListOfDListtClauseData& sets,
                   const std::function<void(const String&)>& expect);

// With a resolver, looks up ahead, concurrently, every name the expansion of
// sets is going to look up, so that each costs the time of one lookup at most
// instead of adding up. Only with a progress sink that never stops the
// expansion part-way: one that may could leave names unlooked-up.
void LookUpAhead(const DListOfDListtClauseData& sets, const tProgress& progress);

#endif
