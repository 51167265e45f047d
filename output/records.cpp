#include "output/records.h"

void tTextRecords::Single(const tPrioritizedString& text) {
  Records.push_back(tRecord{&text, text.Priority, -1, 1, 1});
  ++Total;
}

void tTextRecords::Values(tRecordValues& values) {
  for (int place = 0; place < 2; ++place) {
    Pending.Values[place] = values.Values[place];
    Pending.First[place] = static_cast<int>(Resolved.size());
    Pending.Count[place] = static_cast<int>(values.Resolved[place].size());
    for (const String& form : values.Resolved[place]) Resolved.push_back(form);
  }
  PendingAdded = false;
}

void tTextRecords::Pairs(const tPrioritizedString& text, int end0, int end1) {
  if (!PendingAdded) PairValues.push_back(Pending);
  PendingAdded = true;
  Records.push_back(
      tRecord{&text, text.Priority, static_cast<int>(PairValues.size()) - 1, end0, end1});
  Total += static_cast<long long>(end0) * end1;
}
