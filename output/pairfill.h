#ifndef RULEFORGE_OUTPUT_PAIRFILL_H
#define RULEFORGE_OUTPUT_PAIRFILL_H

#include <deque>

#include "output/fill.h"
#include "text/dliststr.h"
#include "text/str.h"

// What fills the value places of one record's value texts as the output keeps
// it: the record's two value lists for ${0} and ${1}, not owned, and for ${0R}
// and ${1R} Count resolved forms each, from First on in a sequence of resolved
// forms kept beside it. A place with no entry for an index stays as written.
struct tPlaceValues {
  const DListtString* Values[2] = {};
  int First[2] = {};
  int Count[2] = {};
};

// The fill of each pair (j, k) of a value text in turn, j outer, as
// tTextSink::Pairs describes them. Refers to the values and resolved forms.
class tPairFill {
 public:
  tPairFill(const tPlaceValues& values, const std::deque<String>& resolved, int end0, int end1);
  // Sets the value places of fill for the next pair; false after the last.
  bool Next(tPlaceFill& fill);

 private:
  const tPlaceValues& Values;
  const std::deque<String>& Resolved;
  int End0, End1, J, K;
  const DLink* At0;
  const DLink* At1;
};

#endif
