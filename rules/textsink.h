#ifndef RULEFORGE_RULES_TEXTSINK_H
#define RULEFORGE_RULES_TEXTSINK_H

#include "text/dliststr.h"
#include "text/str.h"

// Receives the texts an expansion generates, in the order it generates them;
// the next stage of a run implements it. The template texts and value lists
// handed in belong to the templates and records, which outlive the receiver.
class tTextSink {
 public:
  virtual ~tTextSink() {}
  // A text copied as it stands.
  virtual void Single(const tPrioritizedString& text) = 0;
  // The value lists that the value texts handed in after it fill in, until
  // the next call: the record's two lists for ${0} and ${1}, which stay the
  // record's and unchanged while the receiver needs them.
  virtual void Values(const DListtString& values0, const DListtString& values1) = 0;
  // The form of the next entry of those values' place (0 or 1) in its
  // resolved place (${0R}, ${1R}), entry by entry, the first place's before
  // the second's. A place whose forms are not handed in stays as written.
  virtual void Resolved(int place, const String& form) = 0;
  // A value text made once for every pair (j, k), j from 0 to end0 - 1 and,
  // for each j, k from 0 to end1 - 1, with entry j of the first places and
  // entry k of the second ones filled in.
  virtual void Pairs(const tPrioritizedString& text, int end0, int end1) = 0;
};

#endif
