#ifndef RULEFORGE_OUTPUT_SUBSTIT_H
#define RULEFORGE_OUTPUT_SUBSTIT_H

#include <string>
#include <vector>

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
  // An automaton over all names finds, in one pass over a text, which names
  // occur in it; a pair whose name does not occur changes nothing, so only the
  // pairs found are applied. Without it (names of more than a million
  // characters) every pair is applied in turn.
  int Pairs;
  bool Scanning;
  // Whether the scan uses the full table Step rather than the trie's edges.
  bool Dense;
  std::vector<String> PairNames;
  std::vector<String> PairValues;
  unsigned char ClassOf[256];
  int Classes;
  // The bytes that begin a name.
  bool Begins[256];
  int LongestName;
  int States;
  // The trie: the edges of state s are EdgeStart[s] to EdgeStart[s + 1] - 1,
  // sorted by byte; Fail is each state's longest proper suffix that is a state.
  std::vector<int> EdgeStart;
  std::vector<unsigned char> EdgeByte;
  std::vector<int> EdgeChild;
  std::vector<int> Fail;
  // The full table, see Build.
  std::vector<int> Step;
  // The first state along the chain of suffixes of a state (itself included)
  // that recognises a name, and the next such state after a given one; -1
  // where there is none.
  std::vector<int> FirstFound;
  std::vector<int> NextFound;
  // The pairs whose name each state recognises, in pair order.
  std::vector<std::vector<int>> PairsOf;
  // A state recognised during the scan numbered Stamp has SeenAt == Stamp.
  std::vector<unsigned> SeenAt;
  unsigned Stamp;
  // The pairs whose names the scans found; applied in pair order.
  std::vector<int> Found;

  // The text a replacement is made into, kept for the next one.
  std::string Work;

  void Build();
  int Edge(int state, unsigned char c) const;
  void Mark(int state);
  void Scan(const std::string& text, size_t from);
  long long Replace(int i, std::string& text);
};

#endif
