#include "check/entries.h"

#include "check/hints.h"
#include "text/dlist.h"

namespace {

void CheckList(const DListtString& entries, int line, tFindings& findings) {
  String written;
  const tString* first = nullptr;
  for (const tString* entry : Walk<const tString>(entries)) {
    if (!first && HoldsSeparators(*entry)) first = entry;
    if (written.Length() > 0) written += ", ";
    written += *entry;
  }
  if (!first) return;
  findings.Add(line, "entry " + Quoted(*first) +
                         " holds ';' between its parts: it is read as one entry and makes one "
                         "broken rule (separate entries by commas: write " +
                         ListHint("### " + written) + ")");
}

void CheckRecord(const tClauseData& record, const tCheckNotes& notes, tFindings& findings) {
  CheckList(record.Values0, notes.LineOf(&record.Values0), findings);
  CheckList(record.Values1, notes.LineOf(&record.Values1), findings);
}

}  // namespace

void CheckEntries(tFilterData& document, const tCheckNotes& notes, tFindings& findings) {
  for (const DListtClauseData* set : Walk<const DListtClauseData>(document.DataSets)) {
    for (const tClauseData* record : Walk<const tClauseData>(*set)) {
      CheckRecord(*record, notes, findings);
      if (record->Partner) CheckRecord(*record->Partner, notes, findings);
    }
  }
}
