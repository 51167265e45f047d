#include "rules/outstage.h"

#include <algorithm>
#include <cstring>

#include "rules/clauslst.h"
#include "rules/fill.h"
#include "rules/writeerr.h"

tOutputStage::tOutputStage(const tOutputFrame& frame, tProgress& progress)
    : Frame(frame),
      Progress(progress),
      Substitutions(frame.Names, frame.Values),
      Total(0),
      Written(0) {}

void tOutputStage::Single(const tPrioritizedString& text) {
  Records.push_back(tRecord{&text, text.Priority, -1, 1, 1});
  ++Total;
}

void tOutputStage::Pairs(const tPrioritizedString& text, const tPlaceValues& values, int end0,
                         int end1) {
  // One record's value texts share their values, handed in once per text.
  if (PairValues.empty() || std::memcmp(&PairValues.back(), &values, sizeof values) != 0)
    PairValues.push_back(values);
  Records.push_back(
      tRecord{&text, text.Priority, static_cast<int>(PairValues.size()) - 1, end0, end1});
  Total += static_cast<long long>(end0) * end1;
}

// Records arrive in the order of generation, so sorting them by priority with
// ties kept in that order places them as ToSorted places each text.
void tOutputStage::Order(const tBlock& block) {
  auto lower = [](const tRecord& a, const tRecord& b) { return a.Priority < b.Priority; };
  std::deque<tRecord>::iterator first = Records.begin() + block.First;
  std::deque<tRecord>::iterator last = Records.begin() + block.Last;
  if (!std::is_sorted(first, last, lower)) std::stable_sort(first, last, lower);
}

int tOutputStage::Expand(DListOfDListtClauseData& sets) {
  int count = sets.Size();
  for (int i = 0; i < count; ++i) {
    DListtClauseData* set = static_cast<DListtClauseData*>(sets[i]);
    Blocks.push_back(tBlock{Records.size(), 0, i == 0 ? nullptr : &set->Name(nullptr)});
    int result = set->WriteFilter(*this, &Progress, i * 90 / count, (i + 1) * 90 / count);
    if (result < 0) return result;
    Blocks.back().Last = Records.size();
    Order(Blocks.back());
  }
  return 0;
}

// The label data sets' blocks go, one after another, before the first main
// text whose priority is above FirstLabel; their own priorities then all read
// FirstLabel, which keeps the whole in order.
int tOutputStage::Write(FILE* out, const char* shownName) {
  if (Blocks.empty()) return 0;
  const tBlock& main = Blocks[0];
  size_t split =
      std::upper_bound(Records.begin() + main.First, Records.begin() + main.Last, Frame.FirstLabel,
                       [](int firstLabel, const tRecord& r) { return firstLabel < r.Priority; }) -
      Records.begin();
  int result = WriteRecords(main.First, split, nullptr, out, shownName);
  for (size_t i = 1; i < Blocks.size() && result >= 0; ++i)
    result = WriteRecords(Blocks[i].First, Blocks[i].Last, Blocks[i].Label, out, shownName);
  if (result >= 0) result = WriteRecords(split, main.Last, nullptr, out, shownName);
  return result;
}

int tOutputStage::WriteRecords(size_t first, size_t last, const String* label, FILE* out,
                               const char* shownName) {
  // Single texts get the label place only; value texts get their pairs too.
  tPlaceFill labelOnly;
  labelOnly.With[tPlaceFill::Label] = label;
  for (size_t r = first; r < last; ++r) {
    const tRecord& record = Records[r];
    const tPrioritizedString& text = *record.Text;
    if (record.Values < 0) {
      if (label) {
        Plan.Split(text);
        Plan.Fill(labelOnly, Line);
      } else {
        Line.assign(text.Text(), text.Length());
      }
      int result = WriteLine(out, shownName);
      if (result < 0) return result;
      continue;
    }
    tPairFill pairs(PairValues[record.Values], Resolved, record.End0, record.End1);
    tPlaceFill fill = labelOnly;
    Plan.Split(text);
    while (pairs.Next(fill)) {
      Plan.Fill(fill, Line);
      int result = WriteLine(out, shownName);
      if (result < 0) return result;
    }
  }
  return 0;
}

// Reports, applies the substitutions and writes the text in Line.
int tOutputStage::WriteLine(FILE* out, const char* shownName) {
  int result =
      Progress.Report("Writing to File...", 90 + static_cast<int>((Written++ * 10) / Total));
  if (result < 0) return result;
  Substitutions.Apply(Line);
  if (Line.empty()) return 0;
  if (std::fwrite(Line.data(), 1, Line.size(), out) < Line.size()) return WriteFailed(shownName);
  return 0;
}
