#ifndef RULEFORGE_TEXT_AUTOMATON_H
#define RULEFORGE_TEXT_AUTOMATON_H

#include <vector>

#include "text/str.h"

// Finds, in one pass over a text, every state at which one of a list of names
// ends (Aho-Corasick): a trie of the names with each state's fail link, its
// longest proper suffix that is also a state. The found states' names are read
// with NamesOf and the states along a found state's chain of suffixes with
// FirstFound and NextFound. Holds its own tables and no reference to the
// names; empty names are left out (StateOf gives -1).
class tNameAutomaton {
 public:
  explicit tNameAutomaton(const std::vector<String>& names);

  int States() const { return static_cast<int>(Fail.size()); }
  // The state that name number i ends in, or -1 for an empty name.
  int StateOf(int i) const { return NameState[i]; }
  // The names that end in state, in ascending order.
  const std::vector<int>& NamesOf(int state) const { return Ends[state]; }
  // The first state along the chain of suffixes of state (itself included)
  // at which a name ends, and the next such state after a given one; -1
  // where there is none.
  int FirstFound(int state) const { return First[state]; }
  int NextFound(int state) const { return Next[state]; }
  // The state after byte c from state.
  int Step(int state, unsigned char c) const;

  // Calls found(state) for the state reached after each byte of the n bytes
  // at p, from the root, whenever a name ends at that state or along its
  // chain of suffixes (FirstFound(state) >= 0).
  template <class F>
  void Scan(const char* p, size_t n, F found) const;

 private:
  // The trie: the edges of state s are EdgeStart[s] to EdgeStart[s + 1] - 1,
  // sorted by byte.
  std::vector<int> EdgeStart;
  std::vector<unsigned char> EdgeByte;
  std::vector<int> EdgeChild;
  std::vector<int> Fail;
  std::vector<int> First;
  std::vector<int> Next;
  std::vector<std::vector<int>> Ends;
  std::vector<int> NameState;
  // When the table of every state and byte class fits, each entry holds the
  // next state times Classes, shifted left once, with the low bit set when
  // that state recognises a name; bytes that occur in no name share class 0,
  // which leads back to the root. Empty otherwise.
  std::vector<int> Table;
  unsigned char ClassOf[256];
  int Classes;
  // The bytes that begin a name: from the root, others lead back to it.
  bool Begins[256];

  void BuildTrie(const std::vector<String>& names);
  void LinkFails(std::vector<int>& order);
  void BuildTable(const std::vector<int>& order);
  int Edge(int state, unsigned char c) const;
};

// A scan takes one table step per byte and skips, from the root, the bytes
// that begin no name; without the table it follows the trie's edges and the
// fail links, which costs at most two steps per byte on average.
template <class F>
void tNameAutomaton::Scan(const char* text, size_t n, F found) const {
  const unsigned char* p = reinterpret_cast<const unsigned char*>(text);
  const unsigned char* end = p + n;
  if (!Table.empty()) {
    int at = 0;
    for (; p < end; ++p) {
      if (at == 0) {
        while (p < end && !Begins[*p]) ++p;
        if (p == end) break;
      }
      int step = Table[at + ClassOf[*p]];
      at = step >> 1;
      if (step & 1) found(at / Classes);
    }
    return;
  }
  int state = 0;
  for (; p < end; ++p) {
    state = Step(state, *p);
    if (First[state] >= 0) found(state);
  }
}

#endif
