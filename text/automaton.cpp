#include "text/automaton.h"

#include <algorithm>
#include <unordered_map>

namespace {

// The largest transition table built, in entries; names beyond it get the
// sparse automaton, whose steps cost a short search each.
const long long kMaxTable = 1 << 22;

struct tEdge {
  int Parent;
  unsigned char Byte;
  int Child;
};

}  // namespace

tNameAutomaton::tNameAutomaton(const std::vector<String>& names) : ClassOf(), Classes(1), Begins() {
  BuildTrie(names);
  std::vector<int> order;
  LinkFails(order);
  if (static_cast<long long>(States()) * Classes <= kMaxTable) BuildTable(order);
}

// The trie's edges as (parent, byte, child), then grouped by parent and
// sorted by byte, so that a state's edges are searched by bisection.
void tNameAutomaton::BuildTrie(const std::vector<String>& names) {
  std::vector<tEdge> edges;
  std::unordered_map<long long, int> child;
  int states = 1;
  for (const String& name : names) {
    int at = 0;
    for (int k = 0; k < name.Length(); ++k) {
      unsigned char c = static_cast<unsigned char>(name.Text()[k]);
      if (!ClassOf[c]) ClassOf[c] = static_cast<unsigned char>(Classes++);
      auto inserted = child.emplace(static_cast<long long>(at) * 256 + c, states);
      if (inserted.second) edges.push_back(tEdge{at, c, states++});
      at = inserted.first->second;
    }
    NameState.push_back(name.Length() > 0 ? at : -1);
  }
  std::sort(edges.begin(), edges.end(), [](const tEdge& a, const tEdge& b) {
    return a.Parent != b.Parent ? a.Parent < b.Parent : a.Byte < b.Byte;
  });
  EdgeStart.assign(states + 1, 0);
  for (const tEdge& edge : edges) ++EdgeStart[edge.Parent + 1];
  for (int state = 0; state < states; ++state) EdgeStart[state + 1] += EdgeStart[state];
  for (const tEdge& edge : edges) {
    EdgeByte.push_back(edge.Byte);
    EdgeChild.push_back(edge.Child);
  }
  Ends.resize(states);
  for (size_t i = 0; i < NameState.size(); ++i)
    if (NameState[i] >= 0) Ends[NameState[i]].push_back(static_cast<int>(i));
  Fail.assign(states, 0);
}

// Breadth first, so that each state's fail link and chain of found states
// are set before its children's; order receives the states in that order.
void tNameAutomaton::LinkFails(std::vector<int>& order) {
  First.assign(States(), -1);
  Next.assign(States(), -1);
  for (int state = 0; state < States(); ++state)
    if (!Ends[state].empty()) First[state] = state;
  order.assign(1, 0);
  for (size_t head = 0; head < order.size(); ++head) {
    int state = order[head];
    if (state != 0) {
      Next[state] = First[Fail[state]];
      if (First[state] < 0) First[state] = First[Fail[state]];
    }
    for (int e = EdgeStart[state]; e < EdgeStart[state + 1]; ++e) {
      int child = EdgeChild[e];
      Fail[child] = state == 0 ? 0 : Step(Fail[state], EdgeByte[e]);
      order.push_back(child);
    }
  }
}

// The missing edges are filled in from the fail links, in breadth-first
// order, so that a fail link's row is complete before it is copied from.
void tNameAutomaton::BuildTable(const std::vector<int>& order) {
  Table.assign(static_cast<size_t>(States()) * Classes, 0);
  for (int e = EdgeStart[0]; e < EdgeStart[1]; ++e) Begins[EdgeByte[e]] = true;
  std::vector<unsigned char> byteOf(Classes, 0);
  for (int c = 0; c < 256; ++c) byteOf[ClassOf[c]] = static_cast<unsigned char>(c);
  for (int state : order) {
    for (int cls = 1; cls < Classes; ++cls) {
      int next = Edge(state, byteOf[cls]);
      if (next < 0)
        next = state == 0
                   ? 0
                   : (Table[static_cast<size_t>(Fail[state]) * Classes + cls] >> 1) / Classes;
      Table[static_cast<size_t>(state) * Classes + cls] =
          ((next * Classes) << 1) | (First[next] >= 0);
    }
  }
}

int tNameAutomaton::Edge(int state, unsigned char c) const {
  const unsigned char* first = EdgeByte.data() + EdgeStart[state];
  const unsigned char* last = EdgeByte.data() + EdgeStart[state + 1];
  const unsigned char* at = std::lower_bound(first, last, c);
  return at != last && *at == c ? EdgeChild[at - EdgeByte.data()] : -1;
}

int tNameAutomaton::Step(int state, unsigned char c) const {
  for (;;) {
    int next = Edge(state, c);
    if (next >= 0 || state == 0) return next >= 0 ? next : 0;
    state = Fail[state];
  }
}
