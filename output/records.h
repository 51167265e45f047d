#ifndef RULEFORGE_OUTPUT_RECORDS_H
#define RULEFORGE_OUTPUT_RECORDS_H

#include <cstddef>
#include <deque>

#include "output/pairfill.h"
#include "rules/textsink.h"
#include "text/dliststr.h"
#include "text/str.h"

// The generated filter text of a run as the expansion hands it over, kept as
// one small record per single text and per value text with its range of pairs,
// in the order of generation; the output stage orders and writes them, making
// each text only while writing it. Owns the records, their values and the
// resolved forms (Forms); the template texts, the records' value lists and the data
// sets' names must outlive it.
class tTextRecords : public tTextSink {
 public:
  // One text, or the texts of one value text over a range of pairs: all of
  // one priority and made one after another, so ordering keeps them
  // together. Values is an index into PairValues, or -1 for a single text.
  struct tRecord {
    const tPrioritizedString* Text;
    int Priority;
    int Values;
    int End0;
    int End1;
  };

  std::deque<tRecord> Records;
  std::deque<tPlaceValues> PairValues;
  std::deque<String> Forms;
  // The number of texts the records stand for.
  long long Total = 0;

  void Single(const tPrioritizedString& text) override;
  void Values(const DListtString& values0, const DListtString& values1) override;
  void Resolved(int place, const String& form) override;
  void Pairs(const tPrioritizedString& text, int end0, int end1) override;

 private:
  // The values handed in last, and whether PairValues holds them yet: a
  // record whose value texts are all skipped adds none.
  tPlaceValues Pending;
  bool PendingAdded = true;
};

// The records of one data set, First to Last - 1 in Records, and the name that
// fills ${L} (null for the main data set).
struct tRecordBlock {
  size_t First;
  size_t Last;
  const String* Label;
};

#endif
