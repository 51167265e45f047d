#include "fuzz/fuzz_support.h"

#include <cstdlib>

#include <deque>

#include "app/common.h"
#include "app/filterd.h"
#include "output/fill.h"
#include "output/output.h"
#include "output/pairfill.h"
#include "rules/clauslst.h"
#include "text/replace.h"

namespace {

// The plain method that the output stage is checked against: every generated
// text made at once, each by FillStepByStep, and put in order into a
// DListtPrioritizedString by ToSorted. The list is not owned.
class tListSink : public tTextSink {
 public:
  explicit tListSink(DListtPrioritizedString& out) : Out(out) {}
  void Single(const tPrioritizedString& text) override {
    Out.ToSorted(new tPrioritizedString(text));
  }
  void Values(const DListtString& values0, const DListtString& values1) override {
    Current.Values[0] = &values0;
    Current.Values[1] = &values1;
    Current.First[0] = Current.First[1] = static_cast<int>(Forms.size());
    Current.Count[0] = Current.Count[1] = 0;
  }
  void Resolved(int place, const String& form) override {
    Forms.push_back(form);
    ++Current.Count[place];
    if (place == 0) Current.First[1] = static_cast<int>(Forms.size());
  }
  void Pairs(const tPrioritizedString& text, int end0, int end1) override {
    tPairFill pairs(Current, Forms, end0, end1);
    tPlaceFill fill;
    while (pairs.Next(fill))
      Out.ToSorted(new tPrioritizedString(FillStepByStep(text, fill), text.Priority));
  }

 private:
  DListtPrioritizedString& Out;
  tPlaceValues Current;
  std::deque<String> Forms;
};

// The texts of one data set, made the plain way, in order into out.
void PlainSetText(DListtClauseData& set, DListtPrioritizedString& out) {
  tProgress silent;
  tListSink sink(out);
  set.WriteFilter(sink, silent, 0, 0);
}

long long RecordBound(const tClauseData& record) {
  long long pairs = (record.Values0.Size() + 1LL) * (record.Values1.Size() + 1LL);
  long long texts = 0;
  for (int v = 0; v < 4; ++v)
    texts += record.Template->SingleTexts[v].Size() + record.Template->ValueTexts[v].Size() * pairs;
  return texts;
}

}  // namespace

std::string PlainFilterText(tFilterData& doc) {
  std::string text;
  int count = doc.DataSets.Size();
  if (count == 0) return text;
  DListtPrioritizedString output;
  PlainSetText(*static_cast<DListtClauseData*>(doc.DataSets[0]), output);
  output.GotoHead();
  while (output.Current() && output.Current()->Priority <= doc.FirstLabel) output.Next();
  for (int i = 1; i < count; ++i) {
    DListtClauseData* set = static_cast<DListtClauseData*>(doc.DataSets[i]);
    DListtPrioritizedString block;
    PlainSetText(*set, block);
    while (tPrioritizedString* made = static_cast<tPrioritizedString*>(block.GetHead())) {
      made->Priority = doc.FirstLabel;
      made->ReplaceAll("${L}", set->Name(nullptr).Text());
      output.ToCurrent(made);
      output.Next();
    }
  }
  for (tPrioritizedString* made : Walk<tPrioritizedString>(output)) {
    for (int i = 0; i < doc.SubstitutionNames.Size() && i < doc.SubstitutionValues.Size(); ++i)
      made->ReplaceAll(doc.SubstitutionNames[i]->Text(), doc.SubstitutionValues[i]->Text());
    text += made->Text();
  }
  return text;
}

int WriteOutput(tFilterData& doc, std::string& out) {
  tProgress progress;
  int result = -1;
  out = Captured(
      [&](FILE* f) { result = WriteOutput(f, "", doc.DataSets, doc.OutputFrame(), progress); });
  return result;
}

long long OutputTextBound(tFilterData& doc) {
  long long texts = 0;
  for (const DListtClauseData* set : Walk<const DListtClauseData>(doc.DataSets)) {
    if (set->Templates) {
      for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(*set->Templates))
        for (const DListtPrioritizedString& singles : clause->SingleTexts) texts += singles.Size();
    }
    for (const tClauseData* record : Walk<const tClauseData>(*set))
      texts += RecordBound(*record) + (record->Partner ? RecordBound(*record->Partner) : 0);
  }
  return texts;
}

void ResetRun() {
  error = 0;
  SetReplacementBounds(1000000, 1000000, 1 << 20);
}

void FuzzFail(const char* file, int line, const char* what) {
  std::fprintf(stderr, "%s:%d: property failed: %s\n", file, line, what);
  std::fflush(stderr);
  std::abort();
}
