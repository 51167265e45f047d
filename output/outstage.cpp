#include "output/outstage.h"

#include <algorithm>

#include "output/writeerr.h"

namespace {

// Records arrive in the order of generation, so sorting them by priority with
// ties kept in that order places them as ToSorted places each text.
void Order(std::deque<tTextRecords::tRecord>& records, const tRecordBlock& block) {
  auto lower = [](const tTextRecords::tRecord& a, const tTextRecords::tRecord& b) {
    return a.Priority < b.Priority;
  };
  auto first = records.begin() + block.First;
  auto last = records.begin() + block.Last;
  if (!std::is_sorted(first, last, lower)) std::stable_sort(first, last, lower);
}

}  // namespace

tOutputStage::tOutputStage(const tOutputFrame& frame, tProgress& progress)
    : Frame(frame),
      Progress(progress),
      Substitutions(frame.Names, frame.Values),
      Total(0),
      Written(0) {}

// The label data sets' blocks go, one after another, before the first main
// text whose priority is above FirstLabel; their own priorities then all read
// FirstLabel, which keeps the whole in order.
int tOutputStage::Write(tTextRecords& texts, const std::vector<tRecordBlock>& blocks, FILE* out,
                        const char* shownName) {
  if (blocks.empty()) return 0;
  for (const tRecordBlock& block : blocks) Order(texts.Records, block);
  Total = texts.Total;
  const tRecordBlock& main = blocks[0];
  auto begin = texts.Records.begin();
  size_t split = std::upper_bound(begin + main.First, begin + main.Last, Frame.FirstLabel,
                                  [](int firstLabel, const tTextRecords::tRecord& r) {
                                    return firstLabel < r.Priority;
                                  }) -
                 begin;
  int result = WriteRecords(texts, main.First, split, nullptr, out, shownName);
  for (size_t i = 1; i < blocks.size() && result >= 0; ++i)
    result = WriteRecords(texts, blocks[i].First, blocks[i].Last, blocks[i].Label, out, shownName);
  if (result >= 0) result = WriteRecords(texts, split, main.Last, nullptr, out, shownName);
  return result;
}

int tOutputStage::WriteRecords(const tTextRecords& texts, size_t first, size_t last,
                               const String* label, FILE* out, const char* shownName) {
  // Single texts get the label place only; value texts get their pairs too.
  tPlaceFill labelOnly;
  labelOnly.With[tPlaceFill::Label] = label;
  for (size_t r = first; r < last; ++r) {
    const tTextRecords::tRecord& record = texts.Records[r];
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
    tPairFill pairs(texts.PairValues[record.Values], texts.Forms, record.End0, record.End1);
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
