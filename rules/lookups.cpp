#include "rules/lookups.h"

#include <string>
#include <unordered_set>

#include "resolve/dnsresol.h"
#include "resolve/entry.h"

namespace {

// The entries of one value place as the expansion hands them to Lookup.
void ForEachEntry(const DListtString& values, int stripBlanks,
                  const std::function<void(const String&)>& expect) {
  String form;
  for (const tString* entry : Walk<const tString>(values)) {
    if (EntryToResolve(*entry, stripBlanks, form) == EntryLookedUp) expect(form);
  }
}

void ForEachRecordLookup(const tClauseData& record,
                         const std::function<void(const String&)>& expect) {
  int uses[2] = {0, 0};
  record.ResolvedPlaces(uses);
  if (uses[0]) ForEachEntry(record.Values0, 0, expect);
  if (uses[1]) ForEachEntry(record.Values1, 1, expect);
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
  if (!Resolver || progress.MayStop()) return;
  // Entries repeat a few names many times over; each text is cleaned once.
  std::unordered_set<std::string> seen;
  ForEachLookup(sets, [&seen](const String& text) {
    if (seen.insert(text.Text()).second) Resolver->Expect(text);
  });
  Resolver->LookUpExpected();
}
