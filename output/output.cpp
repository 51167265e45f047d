#include "output/output.h"

#include <vector>

#include "output/outstage.h"
#include "output/records.h"
#include "output/section.h"
#include "output/writeerr.h"
#include "rules/lookups.h"

namespace {

// Output that fits in the stdio buffer only fails when it is flushed, so the
// flush counts as part of the writing, also when the filter text is empty and
// the buffer holds only the parseable section.
int Flush(FILE* out, const char* shownName) {
  if (std::fflush(out) != 0 || std::ferror(out)) return WriteFailed(shownName);
  return 0;
}

// Expands every data set, the main one first, into texts, one block each; a
// negative answer of the progress sink is returned and ends the expansion.
int Expand(DListOfDListtClauseData& sets, tTextRecords& texts, std::vector<tRecordBlock>& blocks,
           tProgress& progress) {
  int count = sets.Size();
  int i = 0;
  for (DListtClauseData* set : Walk<DListtClauseData>(sets)) {
    blocks.push_back(tRecordBlock{texts.Records.size(), 0, i == 0 ? nullptr : &set->Name(nullptr)});
    int result = set->WriteFilter(texts, progress, i * 90 / count, (i + 1) * 90 / count);
    if (result < 0) return result;
    blocks.back().Last = texts.Records.size();
    ++i;
  }
  return 0;
}

}  // namespace

int WriteOutput(FILE* out, const char* shownName, DListOfDListtClauseData& sets,
                const tOutputFrame& frame, tProgress& progress) {
  int result = WriteSection(out, frame.Title, sets);
  if (result < 0) return result;
  // Without any data set there is nothing to expand: the section alone is the
  // whole output.
  if (sets.Size() == 0) return Flush(out, shownName);
  LookUpAhead(sets, progress);

  tTextRecords texts;
  std::vector<tRecordBlock> blocks;
  result = Expand(sets, texts, blocks, progress);
  if (result >= 0) {
    tOutputStage stage(frame, progress);
    result = stage.Write(texts, blocks, out, shownName);
  }
  if (result < 0) return result;
  return Flush(out, shownName);
}
