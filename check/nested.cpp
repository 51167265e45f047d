#include "check/nested.h"

#include <cstdint>
#include <unordered_map>

namespace {

// A trie of the names with its fail links: Fail is a state's longest proper
// suffix that is a state, Output the nearest state along that chain that ends
// a name (-1 where none does), Ends the names that end in the state.
class tAutomaton {
 public:
  tAutomaton() { AddState(0); }

  // Adds name, which ends in the state returned.
  int Insert(const String& name, int index) {
    int state = 0;
    for (int i = 0; i < name.Length(); ++i) {
      unsigned char c = static_cast<unsigned char>(name.Text()[i]);
      int next = Edge(state, c);
      if (next < 0) {
        next = AddState(c);
        Edges.emplace(Key(state, c), next);
        NextSibling[next] = FirstChild[state];
        FirstChild[state] = next;
      }
      state = next;
    }
    Ends[state].push_back(index);
    return state;
  }

  // Breadth first, so that each state's fail link is set before its children's.
  void Link() {
    std::vector<int> queue(1, 0);
    for (size_t at = 0; at < queue.size(); ++at) {
      int state = queue[at];
      for (int child = FirstChild[state]; child >= 0; child = NextSibling[child]) {
        queue.push_back(child);
        int fail = state == 0 ? 0 : Step(Fail[state], Byte[child]);
        Fail[child] = fail;
        Output[child] = Ends[fail].empty() ? Output[fail] : fail;
      }
    }
  }

  // The state after c from state, following fail links where c has no edge.
  int Step(int state, unsigned char c) const {
    for (;;) {
      int next = Edge(state, c);
      if (next >= 0 || state == 0) return next >= 0 ? next : 0;
      state = Fail[state];
    }
  }

  int States() const { return static_cast<int>(Ends.size()); }
  std::vector<int> Output;
  std::vector<std::vector<int>> Ends;

 private:
  std::unordered_map<std::uint64_t, int> Edges;
  std::vector<int> FirstChild, NextSibling, Fail;
  std::vector<unsigned char> Byte;

  static std::uint64_t Key(int state, unsigned char c) {
    return static_cast<std::uint64_t>(state) << 8 | c;
  }
  int Edge(int state, unsigned char c) const {
    auto edge = Edges.find(Key(state, c));
    return edge == Edges.end() ? -1 : edge->second;
  }
  int AddState(unsigned char c) {
    FirstChild.push_back(-1);
    NextSibling.push_back(-1);
    Fail.push_back(0);
    Output.push_back(-1);
    Byte.push_back(c);
    Ends.emplace_back();
    return States() - 1;
  }
};

}  // namespace

std::vector<std::vector<int>> NestedNames(const std::vector<const String*>& names) {
  int n = static_cast<int>(names.size());
  tAutomaton automaton;
  std::vector<int> own(n, -1);
  for (int i = 0; i < n; ++i)
    if (names[i]->Length() > 0) own[i] = automaton.Insert(*names[i], i);
  automaton.Link();

  // Each name is scanned once; a state found while scanning name i is marked
  // with i, and so is every state on its output chain, so a chain is walked
  // only up to its first marked state. Equal names share their own state,
  // which is passed over.
  std::vector<int> marked(automaton.States(), -1);
  std::vector<std::pair<int, int>> found;
  for (int i = 0; i < n; ++i) {
    if (own[i] < 0) continue;
    int state = 0;
    for (int at = 0; at < names[i]->Length(); ++at) {
      state = automaton.Step(state, static_cast<unsigned char>(names[i]->Text()[at]));
      int hit = automaton.Ends[state].empty() ? automaton.Output[state] : state;
      for (; hit >= 0 && marked[hit] != i; hit = automaton.Output[hit]) {
        marked[hit] = i;
        if (hit == own[i]) continue;
        for (int j : automaton.Ends[hit]) found.emplace_back(j < i ? j : i, j < i ? i : j);
      }
    }
  }

  // Placed by the earlier name first, so that each later name's list comes
  // out in ascending order without a sort.
  std::vector<int> start(n + 1, 0);
  for (const auto& pair : found) ++start[pair.first + 1];
  for (int i = 0; i < n; ++i) start[i + 1] += start[i];
  std::vector<int> later(found.size());
  for (const auto& pair : found) later[start[pair.first]++] = pair.second;
  std::vector<std::vector<int>> nested(n);
  for (int earlier = 0, at = 0; earlier < n; ++earlier)
    for (; at < start[earlier]; ++at) nested[later[at]].push_back(earlier);
  return nested;
}
