#ifndef RULEFORGE_RULES_TEXTSINK_H
#define RULEFORGE_RULES_TEXTSINK_H

#include <vector>

#include "text/dliststr.h"
#include "text/str.h"

// The entries that fill the value places of one record's value texts: for
// ${0}, ${1}, ${0R} and ${1R} in turn, Count entries from First on in the
// sink's Entries. A place with no entries stays as written.
struct tPlaceValues {
  enum { Value0, Value1, Resolved0, Resolved1, Places };
  int First[Places] = {};
  int Count[Places] = {};
};

// Receives the texts an expansion generates, in the order it generates them.
// Owns Entries, the value texts that tPlaceValues refer to; the template texts
// handed in belong to the templates, which outlive the sink.
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

  std::vector<String> Entries;
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
