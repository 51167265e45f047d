#include "rules/clauslst.h"

#include <string>

#include "rules/textsink.h"

namespace {

// Fixed clauses need no data: all single texts of all four variants are used.
void AddFixedClauses(const DListtClauseTemplate& templates, tTextSink& out) {
  for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(templates)) {
    if (!(clause->Flags & tClauseTemplate::FixedClause)) continue;
    for (const DListtPrioritizedString& singles : clause->SingleTexts) {
      for (const tPrioritizedString* single : Walk<const tPrioritizedString>(singles))
        out.Single(*single);
    }
  }
}

}  // namespace

int DListtClauseData::WriteFilter(tTextSink& out, tProgress& progress, int from, int to) {
  if (Templates) AddFixedClauses(*Templates, out);
  int answer = 0;
  int n = Size();
  int i = 0;
  std::string text;
  for (tClauseData* record : Walk<tClauseData>(*this)) {
    text.assign(SetName.Text(), SetName.Length()).append(" : ");
    text.append(record->Template->Name.Text(), record->Template->Name.Length());
    int percent = from + static_cast<int>((static_cast<long long>(to - from) * i) / n);
    answer = progress.Report(text.c_str(), percent);
    if (answer < 0) break;
    answer = record->WriteFilter(out);
    if (answer < 0) break;
    ++i;
  }
  return answer;
}
