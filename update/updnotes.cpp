#include "update/updnotes.h"

tUpdateNotes::tUpdateNotes(tCheckNotes& check, tFindings& findings)
    : Check(check), Findings(findings), AtBegin(0) {}

void tUpdateNotes::BeginData() {
  Check.BeginData();
  AtBegin = Findings.Total;
}

void tUpdateNotes::Note(int line, tNote what, const String& detail) {
  if (what == NoteOtherWriter || what == NoteOtherTemplate || what == NoteUnknownClause) return;
  Check.Note(line, what, detail);
}

void tUpdateNotes::Placed(const void* element, int line) { Check.Placed(element, line); }
