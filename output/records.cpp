#include "output/records.h"

void tTextRecords::Single(const tPrioritizedString& text) {
  Records.push_back(tRecord{&text, text.Priority, -1, 1, 1});
  ++Total;
}

void tTextRecords::Values(const DListtString& values0, const DListtString& values1) {
  Pending.Values[0] = &values0;
  Pending.Values[1] = &values1;
  Pending.First[0] = Pending.First[1] = static_cast<int>(Forms.size());
  Pending.Count[0] = Pending.Count[1] = 0;
  PendingAdded = false;
}

void tTextRecords::Resolved(int place, const String& form) {
  Forms.push_back(form);
  ++Pending.Count[place];
  if (place == 0) Pending.First[1] = static_cast<int>(Forms.size());
}

void tTextRecords::Pairs(const tPrioritizedString& text, int end0, int end1) {
  if (!PendingAdded) PairValues.push_back(Pending);
  PendingAdded = true;
  Records.push_back(
      tRecord{&text, text.Priority, static_cast<int>(PairValues.size()) - 1, end0, end1});
  Total += static_cast<long long>(end0) * end1;
}
