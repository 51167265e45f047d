#ifndef RULEFORGE_RULES_TEXTSINK_H
#define RULEFORGE_RULES_TEXTSINK_H

#include <vector>

#include "text/dliststr.h"
#include "text/str.h"

// What fills the value places of one record's value texts: its two value
// lists for ${0} and ${1}, which stay the record's (they must stay unchanged
// while a receiver needs them), and for ${0R} and ${1R} the resolved form of
// each entry, in entry order, which a receiver may take over. A place with no
// entry for an index stays as written.
struct tRecordValues {
  const DListtString* Values[2] = {};
  std::vector<String> Resolved[2];
};

// Receives the texts an expansion generates, in the order it generates them;
// the next stage of a run implements it. The template texts and value lists
// handed in belong to the templates and records, which outlive the receiver.
class tTextSink {
 public:
  virtual ~tTextSink() {}
  // A text copied as it stands.
  virtual void Single(const tPrioritizedString& text) = 0;
  // The values that the value texts handed in after it fill in, until the
  // next call; the receiver may move the resolved forms out of values.
  virtual void Values(tRecordValues& values) = 0;
  // A value text made once for every pair (j, k), j from 0 to end0 - 1 and,
  // for each j, k from 0 to end1 - 1, with entry j of the first places and
  // entry k of the second ones filled in.
  virtual void Pairs(const tPrioritizedString& text, int end0, int end1) = 0;
};

#endif
