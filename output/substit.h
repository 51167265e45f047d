#ifndef RULEFORGE_OUTPUT_SUBSTIT_H
#define RULEFORGE_OUTPUT_SUBSTIT_H

#include <memory>
#include <string>
#include <vector>

#include "text/automaton.h"
#include "text/dliststr.h"
#include "text/str.h"

// The template's substitutions, applied to a generated text pair by pair in
// file order: every occurrence of a name is replaced by its value, and a later
// pair sees the result of the earlier ones. Holds its own copies of the pairs,
// up to the shorter of the two lists.
class tSubstitutions {
 public:
  tSubstitutions(const DListtString& names, const DListtString& values);
  void Apply(String& text);
  void Apply(std::string& text);

 private:
  std::vector<String> PairNames;
  std::vector<String> PairValues;
  int LongestName;
  // Finds, in one pass over a text, which names occur in it; a pair whose
  // name does not occur changes nothing, so only the pairs found are applied.
  // Null when there is no name or the names hold more than a million
  // characters in all: then every pair is applied in turn.
  std::unique_ptr<tNameAutomaton> Names;
  // A state recognised during the scan numbered Stamp has SeenAt == Stamp.
  std::vector<unsigned> SeenAt;
  unsigned Stamp;
  // The pairs whose names the scans found; applied in pair order.
  std::vector<int> Found;
  // The text a replacement is made into, kept for the next one.
  std::string Work;

  void Mark(int state);
  void Scan(const std::string& text, size_t from);
  long long Replace(int i, std::string& text);
};

#endif
