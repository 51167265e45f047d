// Bytes as a template file: read it, dump it, read the dump back and dump that.
// A dump always reads back without error, and when the document holds nothing
// the dump format cannot carry, reading a dump gives the same document, so its
// dump is byte for byte the same.
#include <cstddef>
#include <cstdint>
#include <string>

#include "app/common.h"
#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"
#include "check/tplcheck.h"
#include "fuzz/fuzz_support.h"

namespace {

int Holds(const String& s, const char* what) { return s.At(what) >= 0; }

// Whether a text of the list holds what.
bool AnyHolds(const DList& list, const char* what) {
  for (const tString* text : Walk<const tString>(list))
    if (Holds(*text, what)) return true;
  return false;
}

// The dump quotes strings with '"', delimits substitutions with '|' and ends
// lines with "\n"; a '\r' may be taken for a line end when read back; an empty
// title line would be skipped.
bool StringsSafe(const tClauseTemplate& t) {
  for (const String* s : {&t.Name, &t.VariantLabels[0], &t.VariantLabels[1], &t.VariantLabels[2],
                          &t.VariantLabels[3], &t.Value0Label, &t.Value1Label})
    if (Holds(*s, "\"") || Holds(*s, "\r")) return false;
  for (int v = 0; v < 4; ++v)
    if (AnyHolds(t.SingleTexts[v], "\r") || AnyHolds(t.ValueTexts[v], "\r")) return false;
  return true;
}

// A list whose last template has an empty name loses that template when read
// back (only one such template is dropped on reading, so a list may still end
// with one).
bool RulesSafe(const DListtClauseTemplate& rules) {
  const tClauseTemplate* last = nullptr;
  for (const tClauseTemplate* t : Walk<const tClauseTemplate>(rules)) {
    if (!StringsSafe(*t) || (t->Partner && !StringsSafe(*t->Partner))) return false;
    last = t;
  }
  return !last || last->Name.Length() > 0;
}

bool DumpReadsBackSame(const tFilterData& doc) {
  if (doc.TemplateTitle.Length() == 0 || Holds(doc.TemplateTitle, "\r")) return false;
  for (const DListtString* list : {&doc.SubstitutionNames, &doc.SubstitutionValues})
    if (AnyHolds(*list, "|") || AnyHolds(*list, "\r")) return false;
  return RulesSafe(doc.MainRules) && RulesSafe(doc.LabelRules);
}

// The template dump of doc.
std::string Dump(const tFilterData& doc) {
  TempFile file;
  doc.WriteTemplate(file.Name());
  return Slurp(file.Name());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ResetRun();
  TempFile input(Bytes(data, size));
  tFilterData first(input.Name(), 0);
  if (error != 0) {
    FUZZ_CHECK(error == 2);
    return 0;
  }
  std::string one = Dump(first);
  FUZZ_CHECK(error == 0);
  TempFile firstDump(one);
  tFilterData second(firstDump.Name(), 0);
  FUZZ_CHECK(error == 0);
  std::string two = Dump(second);

  // A receiver of notes changes nothing of what is read, and the checks of
  // the template as read run on any template.
  tFindings findings;
  tCheckNotes notes(findings);
  tFilterData noted(input.Name(), 0, notes);
  CheckTemplate(noted, notes, findings);
  FUZZ_CHECK(Dump(noted) == one);
  if (DumpReadsBackSame(first)) FUZZ_CHECK(one == two);

  TempFile secondDump(two);
  tFilterData third(secondDump.Name(), 0);
  FUZZ_CHECK(error == 0);
  if (DumpReadsBackSame(second)) FUZZ_CHECK(Dump(third) == two);
  return 0;
}
