#include "rules/textsink.h"

#include "rules/fill.h"

void tListSink::Single(const tPrioritizedString& text) {
  Out.ToSorted(new tPrioritizedString(text));
}

void tListSink::Pairs(const tPrioritizedString& text, const tPlaceValues& values, int end0,
                      int end1) {
  for (int j = 0; j < end0; ++j) {
    for (int k = 0; k < end1; ++k) {
      tPlaceFill fill;
      for (int place = 0; place < tPlaceValues::Places; ++place) {
        int index = place % 2 ? k : j;
        if (index < values.Count[place]) fill.With[place] = &Entries[values.First[place] + index];
      }
      Out.ToSorted(new tPrioritizedString(FillStepByStep(text, fill), text.Priority));
    }
  }
}
