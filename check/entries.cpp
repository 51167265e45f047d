#include "check/entries.h"

#include "check/addresses.h"
#include "check/hints.h"
#include "check/records.h"
#include "text/dlist.h"

namespace {

// One finding for the first entry that holds ';' separators and one for the
// first that runs addresses together; both hint at the whole line with every
// such entry split.
void CheckList(const DListtString& entries, int line, tFindings& findings) {
  String written;
  const tString* separated = nullptr;
  const tString* glued = nullptr;
  for (const tString* entry : Walk<const tString>(entries)) {
    if (written.Length() > 0) written += ", ";
    String split;
    if (GluedAddresses(*entry, split)) {
      if (!glued) glued = entry;
      written += split;
      continue;
    }
    if (!separated && HoldsSeparators(*entry)) separated = entry;
    written += *entry;
  }
  String meant =
      ": it is read as one entry and makes one broken rule (separate entries by commas: "
      "write " +
      ListHint("### " + written) + ")";
  if (separated)
    findings.Add(line, "entry " + Quoted(*separated) + " holds ';' between its parts" + meant);
  if (glued) findings.Add(line, "entry " + Quoted(*glued) + " runs addresses together" + meant);
}

void CheckRecord(const tClauseData& record, const tCheckNotes& notes, tFindings& findings) {
  CheckList(record.Values0, notes.LineOf(&record.Values0), findings);
  CheckList(record.Values1, notes.LineOf(&record.Values1), findings);
}

}  // namespace

void CheckEntries(tFilterData& document, const tCheckNotes& notes, tFindings& findings) {
  ForEachRecord(document, [&](const tClauseData& record) { CheckRecord(record, notes, findings); });
}
