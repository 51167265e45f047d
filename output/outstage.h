#ifndef RULEFORGE_OUTPUT_OUTSTAGE_H
#define RULEFORGE_OUTPUT_OUTSTAGE_H

#include <cstdio>
#include <string>
#include <vector>

#include "output/fill.h"
#include "output/output.h"
#include "output/records.h"
#include "output/substit.h"
#include "rules/progress.h"

// Writes the generated filter text: orders each data set's records by
// priority as ToSorted would place their texts, splices the label data sets'
// blocks into the main one, makes each text, fills ${L}, applies the
// substitutions and writes it. The order depends on priority and order of
// generation alone, and a text on its template text, its values and its data
// set's name, so the bytes are those of making every text first. Refers to
// the frame and the progress sink, which outlive it.
class tOutputStage {
 public:
  tOutputStage(const tOutputFrame& frame, tProgress& progress);
  // Writes every text of texts in order; -1 after error 8, or the progress
  // sink's negative answer. Orders the records of each block in place.
  int Write(tTextRecords& texts, const std::vector<tRecordBlock>& blocks, FILE* out,
            const char* shownName);

 private:
  const tOutputFrame& Frame;
  tProgress& Progress;
  tSubstitutions Substitutions;
  std::string Line;
  tFillPlan Plan;
  long long Total;
  long long Written;

  int WriteRecords(const tTextRecords& texts, size_t first, size_t last, const String* label,
                   FILE* out, const char* shownName);
  int WriteLine(FILE* out, const char* shownName);
};

#endif
