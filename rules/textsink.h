#ifndef RULEFORGE_RULES_TEXTSINK_H
#define RULEFORGE_RULES_TEXTSINK_H

#include <deque>

#include "rules/fill.h"

#include "text/dliststr.h"
#include "text/str.h"

// What fills the value places of one record's value texts: its two value
// lists for ${0} and ${1}, which the sink does not own and which must stay
// unchanged while it needs them, and for ${0R} and ${1R} Count resolved forms
// each, from First on in the sink's Resolved. A place with no entry for an
// index stays as written.
struct tPlaceValues {
  const DListtString* Values[2] = {};
  int First[2] = {};
  int Count[2] = {};
};

// Receives the texts an expansion generates, in the order it generates them.
// Owns Resolved, the resolved forms that tPlaceValues refer to; the template
// texts and value lists handed in belong to the templates and records, which
// outlive the sink.
class tTextSink {
 public:
  virtual ~tTextSink() {}
  // A text copied as it stands.
  virtual void Single(const tPrioritizedString& text) = 0;
  // A value text made once for every pair (j, k), j from 0 to end0 - 1 and,
  // for each j, k from 0 to end1 - 1, with entry j of the first places and
  // entry k of the second ones filled in.
  virtual void Pairs(const tPrioritizedString& text, const tPlaceValues& values, int end0,
                     int end1) = 0;

  std::deque<String> Resolved;
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

// The generated texts made at once, each by the step-by-step method, and put
// in order into a DListtPrioritizedString by ToSorted. The list is not owned.
class tListSink : public tTextSink {
 public:
  explicit tListSink(DListtPrioritizedString& out) : Out(out) {}
  void Single(const tPrioritizedString& text) override;
  void Pairs(const tPrioritizedString& text, const tPlaceValues& values, int end0,
             int end1) override;

 private:
  DListtPrioritizedString& Out;
};

#endif
