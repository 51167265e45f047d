#include "fuzz/fuzz_support.h"

#include <cstdlib>

#include "app/common.h"
#include "app/filterd.h"
#include "rules/clauslst.h"
#include "text/replace.h"

namespace {

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
  tProgress silent;
  DListtPrioritizedString output;
  static_cast<DListtClauseData*>(doc.DataSets[0])->WriteFilter(output, &silent, 0, 0);
  output.GotoHead();
  while (output.Current() && output.Current()->Priority <= doc.FirstLabel) output.Next();
  for (int i = 1; i < count; ++i) {
    DListtClauseData* set = static_cast<DListtClauseData*>(doc.DataSets[i]);
    DListtPrioritizedString block;
    set->WriteFilter(block, &silent, 0, 0);
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
  out = Captured([&](FILE* f) {
    result = doc.DataSets.WriteTo(f, "",
                                  tOutputFrame{doc.TemplateTitle.Text(), doc.FirstLabel,
                                               doc.SubstitutionNames, doc.SubstitutionValues},
                                  progress);
  });
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
  RestartReplacementBudget();
}

void FuzzFail(const char* file, int line, const char* what) {
  std::fprintf(stderr, "%s:%d: property failed: %s\n", file, line, what);
  std::fflush(stderr);
  std::abort();
}
