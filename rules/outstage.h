#ifndef RULEFORGE_RULES_OUTSTAGE_H
#define RULEFORGE_RULES_OUTSTAGE_H

#include <cstdio>
#include <deque>
#include <string>
#include <vector>

#include "rules/fill.h"
#include "rules/progress.h"
#include "rules/substit.h"
#include "rules/textsink.h"
#include "text/dliststr.h"

class DListOfDListtClauseData;

// What the output takes from the template besides the data sets: its title,
// the priority at which the label data sets' texts go in (FirstLabel), and the
// substitution pairs. Refers to the document's fields, which outlive it.
struct tOutputFrame {
  const char* Title;
  int FirstLabel;
  DListtString& Names;
  DListtString& Values;
};

// The generated filter text of a run, from the expansion of every data set to
// the written bytes. Instead of a DListtPrioritizedString of made texts it
// keeps one small record per value text and pair range, in the order ToSorted
// would give them, and makes each text only while writing it: the order
// depends on priority and order of generation alone, and a text on its
// template text, its values and its data set's name, so the bytes are the
// same. Owns the records and the resolved forms they refer to; the templates,
// the records' value lists and the data sets' names must outlive it.
class tOutputStage : public tTextSink {
 public:
  tOutputStage(const tOutputFrame& frame, tProgress& progress);
  // Expands every data set, the main one first; a negative answer of the
  // progress sink is returned and ends the expansion.
  int Expand(DListOfDListtClauseData& sets);
  // Writes every text in order; -1 after error 8, or the sink's negative
  // answer.
  int Write(FILE* out, const char* shownName);

  void Single(const tPrioritizedString& text) override;
  void Pairs(const tPrioritizedString& text, const tPlaceValues& values, int end0,
             int end1) override;

 private:
  // One text, or the texts of one value text over a range of pairs: all of
  // one priority and made one after another, so ToSorted keeps them
  // together. Values is an index into PairValues, or -1 for a single text.
  struct tRecord {
    const tPrioritizedString* Text;
    int Priority;
    int Values;
    int End0;
    int End1;
  };
  // The records of one data set, First to Last - 1 in Records, and the name
  // that fills ${L} (null for the main data set).
  struct tBlock {
    size_t First;
    size_t Last;
    const String* Label;
  };

  const tOutputFrame& Frame;
  tProgress& Progress;
  tSubstitutions Substitutions;
  std::deque<tPlaceValues> PairValues;
  std::deque<tRecord> Records;
  std::vector<tBlock> Blocks;
  std::string Line;
  tFillPlan Plan;
  long long Total;
  long long Written;

  void Order(const tBlock& block);
  int WriteRecords(size_t first, size_t last, const String* label, FILE* out,
                   const char* shownName);
  int WriteLine(FILE* out, const char* shownName);
};

#endif
