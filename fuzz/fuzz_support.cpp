#include "fuzz/fuzz_support.h"

#include <cstdlib>

#include "app/common.h"
#include "app/filterd.h"

namespace {

long long RecordBound(const tClauseData& record) {
  long long pairs = (record.Values0.Size() + 1LL) * (record.Values1.Size() + 1LL);
  long long texts = 0;
  for (int v = 0; v < 4; ++v)
    texts += record.Template->SingleTexts[v].Size() + record.Template->ValueTexts[v].Size() * pairs;
  return texts;
}

}  // namespace

FILE* NullOutput() {
  static FILE* null = std::fopen("/dev/null", "w");
  FUZZ_CHECK(null != nullptr);
  return null;
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

void ResetRun() { error = 0; }

void FuzzFail(const char* file, int line, const char* what) {
  std::fprintf(stderr, "%s:%d: property failed: %s\n", file, line, what);
  std::fflush(stderr);
  std::abort();
}
