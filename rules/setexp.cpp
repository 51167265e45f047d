#include "rules/clauslst.h"

namespace {

// Fixed clauses need no data: all single texts of all four variants are used.
void AddFixedClauses(DListtClauseTemplate& templates, DListtPrioritizedString& out) {
  for (templates.GotoHead(); templates.Current(); templates.Next()) {
    tClauseTemplate* clause = templates.Current();
    if (!(clause->Flags & tClauseTemplate::FixedClause)) continue;
    for (DListtPrioritizedString& singles : clause->SingleTexts) {
      for (singles.GotoHead(); singles.Current(); singles.Next())
        out.ToSorted(new tPrioritizedString(*singles.Current()));
    }
  }
}

}  // namespace

int DListtClauseData::WriteFilter(DListtPrioritizedString& out, tProgress* progress, int from,
                                  int to) {
  tProgress silent;
  if (!progress) progress = &silent;
  if (Templates) AddFixedClauses(*Templates, out);
  int answer = 0;
  int n = Size();
  int i = 0;
  for (GotoHead(); Current(); Next(), ++i) {
    tClauseData* record = Current();
    String text = SetName + " : " + record->Template->Name;
    int percent = from + static_cast<int>((static_cast<long long>(to - from) * i) / n);
    answer = progress->Report(text.Text(), percent);
    if (answer < 0) break;
    answer = record->WriteFilter(out);
    if (answer < 0) break;
  }
  return answer;
}
