// Bytes as a template file: read it, dump it, read the dump back and dump that.
// A dump always reads back without error, and when the document holds nothing
// the dump format cannot carry, reading a dump gives the same document, so its
// dump is byte for byte the same.
#include <cstddef>
#include <cstdint>
#include <string>

#include "app/common.h"
#include "app/filterd.h"
#include "fuzz/fuzz_support.h"

namespace {

int Holds(const String& s, const char* what) { return s.At(what) >= 0; }

// The dump quotes strings with '"', delimits substitutions with '|' and ends
// lines with "\n"; a '\r' may be taken for a line end when read back; an empty
// title line would be skipped.
bool StringsSafe(const tClauseTemplate& t) {
  const String* strings[] = {&t.Name,
                             &t.VariantLabels[0],
                             &t.VariantLabels[1],
                             &t.VariantLabels[2],
                             &t.VariantLabels[3],
                             &t.Value0Label,
                             &t.Value1Label};
  for (const String* s : strings) {
    if (Holds(*s, "\"") || Holds(*s, "\r")) return false;
  }
  for (int v = 0; v < 4; ++v) {
    DListtPrioritizedString* lists[] = {const_cast<DListtPrioritizedString*>(&t.SingleTexts[v]),
                                        const_cast<DListtPrioritizedString*>(&t.ValueTexts[v])};
    for (DListtPrioritizedString* list : lists) {
      for (int i = 0; i < list->Size(); ++i) {
        if (Holds(*static_cast<tPrioritizedString*>((*list)[i]), "\r")) return false;
      }
    }
  }
  return true;
}

// A list whose last template has an empty name loses that template when read
// back (only one such template is dropped on reading, so a list may still end
// with one).
bool RulesSafe(DListtClauseTemplate& rules) {
  int size = rules.Size();
  if (size > 0 && static_cast<tClauseTemplate*>(rules[size - 1])->Name.Length() == 0) return false;
  for (int i = 0; i < rules.Size(); ++i) {
    tClauseTemplate* t = static_cast<tClauseTemplate*>(rules[i]);
    if (!StringsSafe(*t)) return false;
    if (t->Partner && !StringsSafe(*t->Partner)) return false;
  }
  return true;
}

bool DumpReadsBackSame(tFilterData& doc) {
  if (doc.TemplateTitle.Length() == 0 || Holds(doc.TemplateTitle, "\r")) return false;
  DListtString* lists[] = {&doc.SubstitutionNames, &doc.SubstitutionValues};
  for (DListtString* list : lists) {
    for (int i = 0; i < list->Size(); ++i) {
      if (Holds(*(*list)[i], "|") || Holds(*(*list)[i], "\r")) return false;
    }
  }
  return RulesSafe(doc.MainRules) && RulesSafe(doc.LabelRules);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ResetRun();
  TempFile input(data, size);
  tFilterData first(input.Path(), 0);
  if (error != 0) {
    FUZZ_CHECK(error == 2);
    return 0;
  }
  TempFile firstDump;
  first.WriteTemplate(firstDump.Path());
  FUZZ_CHECK(error == 0);

  tFilterData second(firstDump.Path(), 0);
  FUZZ_CHECK(error == 0);
  TempFile secondDump;
  second.WriteTemplate(secondDump.Path());
  std::string one = firstDump.Contents();
  std::string two = secondDump.Contents();
  if (DumpReadsBackSame(first)) FUZZ_CHECK(one == two);

  tFilterData third(secondDump.Path(), 0);
  FUZZ_CHECK(error == 0);
  if (DumpReadsBackSame(second)) {
    TempFile thirdDump;
    third.WriteTemplate(thirdDump.Path());
    FUZZ_CHECK(thirdDump.Contents() == two);
  }
  return 0;
}
