#include "rules/lookups.h"

#include <string>
#include <typeinfo>
#include <unordered_set>

#include "resolve/dnsresol.h"

namespace {

// The entries of one value place as the expansion hands them to Lookup: empty
// ones and "*" alone never reach it, other wildcards become zeros.
void ForEachEntry(const DListtString& values, int stripBlanks,
                  const std::function<void(const String&)>& expect) {
  for (const tString* entry : Walk<const tString>(values)) {
    String copy = stripBlanks ? entry->Strip(" \t\n\r") : String(*entry);
    if (copy.Length() == 0 || copy == "*") continue;
    copy.ReplaceAll("*", "0");
    expect(copy);
  }
}

// One record, by the rules of its expansion: the variants in effect are the
// unlabelled variant 0 and every labelled variant switched on; a value place is
// resolved when a value text of such a variant mentions its resolved form,
// whether or not that text is then skipped for an empty list.
void ForEachRecordLookup(const tClauseData& record,
                         const std::function<void(const String&)>& expect) {
  const tClauseTemplate& clause = *record.Template;
  int uses0R = 0, uses1R = 0;
  for (int i = 0; i < 4; ++i) {
    int labelled = clause.VariantLabels[i].Length() > 0;
    if (!((i == 0 && !labelled) || (labelled && record.VariantStates[i] != 0))) continue;
    for (const tPrioritizedString* text : Walk<const tPrioritizedString>(clause.ValueTexts[i])) {
      if (text->At("${0R}") >= 0) uses0R = 1;
      if (text->At("${1R}") >= 0) uses1R = 1;
    }
  }
  if (uses0R) ForEachEntry(record.Values0, 0, expect);
  if (uses1R) ForEachEntry(record.Values1, 1, expect);
}

}  // namespace

void ForEachLookup(const DListOfDListtClauseData& sets,
                   const std::function<void(const String&)>& expect) {
  for (const DListtClauseData* set : Walk<const DListtClauseData>(sets)) {
    for (const tClauseData* record : Walk<const tClauseData>(*set)) {
      ForEachRecordLookup(*record, expect);
      if (record->Partner) ForEachRecordLookup(*record->Partner, expect);
    }
  }
}

void LookUpAhead(const DListOfDListtClauseData& sets, const tProgress& progress) {
  if (!Resolver || typeid(progress) != typeid(tProgress)) return;
  // Entries repeat a few names many times over; each text is cleaned once.
  std::unordered_set<std::string> seen;
  ForEachLookup(sets, [&seen](const String& text) {
    if (seen.insert(text.Text()).second) Resolver->Expect(text);
  });
  Resolver->LookUpExpected();
}
