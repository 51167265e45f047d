#ifndef RULEFORGE_CHECK_RECORDS_H
#define RULEFORGE_CHECK_RECORDS_H

#include "app/filterd.h"
#include "text/dlist.h"

// Calls visit with every clause record of the document's data sets as read,
// each companion record right after its first record, in the order of the
// sets and of their records.
template <typename Visit>
void ForEachRecord(const tFilterData& document, Visit visit) {
  for (const DListtClauseData* set : Walk<const DListtClauseData>(document.DataSets)) {
    for (const tClauseData* record : Walk<const tClauseData>(*set)) {
      visit(*record);
      if (record->Partner) visit(*record->Partner);
    }
  }
}

#endif
