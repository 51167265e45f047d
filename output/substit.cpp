#include "output/substit.h"

#include <algorithm>
#include <unordered_map>

#include "text/replace.h"

namespace {

// The largest transition table built, in entries; names beyond it get the
// sparse automaton, whose steps cost a short search each.
const long long kMaxTable = 1 << 22;

// Names of more characters than this in all are applied pair by pair: they are
// then few or the texts they can occur in are long.
const long long kMaxNameCharacters = 1 << 20;

}  // namespace

tSubstitutions::tSubstitutions(const DListtString& names, const DListtString& values)
    : Pairs(names.Size() < values.Size() ? names.Size() : values.Size()),
      Scanning(false),
      Dense(false),
      ClassOf(),
      Classes(1),
      Begins(),
      LongestName(0),
      Stamp(0) {
  for (const tString* name : Walk<const tString>(names)) {
    if (static_cast<int>(PairNames.size()) == Pairs) break;
    PairNames.push_back(*name);
  }
  for (const tString* value : Walk<const tString>(values)) {
    if (static_cast<int>(PairValues.size()) == Pairs) break;
    PairValues.push_back(*value);
  }
  Build();
}

// A trie of the names, with each state's fail link: its longest proper suffix
// that is also a state (Aho-Corasick). When the table of every state and byte
// class fits, the missing edges are filled in from the fail links, breadth
// first, and a scan takes one step per byte; bytes that occur in no name share
// class 0, which leads back to the root. Otherwise a scan follows the trie's
// edges and the fail links, which costs at most two steps per byte on average
// whatever the names' alphabet.
void tSubstitutions::Build() {
  long long total = 0;
  for (const String& name : PairNames) {
    total += name.Length();
    if (name.Length() > LongestName) LongestName = name.Length();
    for (int k = 0; k < name.Length(); ++k) {
      unsigned char c = static_cast<unsigned char>(name.Text()[k]);
      if (!ClassOf[c]) ClassOf[c] = static_cast<unsigned char>(Classes++);
    }
  }
  if (Pairs == 0 || total == 0 || total > kMaxNameCharacters) return;

  // The trie's edges as (parent, byte, child), then grouped by parent and
  // sorted by byte.
  struct tEdge {
    int Parent;
    unsigned char Byte;
    int Child;
  };
  std::vector<tEdge> edges;
  std::vector<int> nameState;
  {
    std::unordered_map<long long, int> child;
    int states = 1;
    for (const String& name : PairNames) {
      int at = 0;
      for (int k = 0; k < name.Length(); ++k) {
        unsigned char c = static_cast<unsigned char>(name.Text()[k]);
        auto inserted = child.emplace(static_cast<long long>(at) * 256 + c, states);
        if (inserted.second) edges.push_back(tEdge{at, c, states++});
        at = inserted.first->second;
      }
      nameState.push_back(name.Length() > 0 ? at : -1);
    }
    States = states;
  }
  std::sort(edges.begin(), edges.end(), [](const tEdge& a, const tEdge& b) {
    return a.Parent != b.Parent ? a.Parent < b.Parent : a.Byte < b.Byte;
  });
  EdgeStart.assign(States + 1, 0);
  for (const tEdge& edge : edges) ++EdgeStart[edge.Parent + 1];
  for (int state = 0; state < States; ++state) EdgeStart[state + 1] += EdgeStart[state];
  EdgeByte.resize(edges.size());
  EdgeChild.resize(edges.size());
  for (size_t e = 0; e < edges.size(); ++e) {
    EdgeByte[e] = edges[e].Byte;
    EdgeChild[e] = edges[e].Child;
  }

  FirstFound.assign(States, -1);
  for (int i = 0; i < Pairs; ++i) {
    if (nameState[i] >= 0) FirstFound[nameState[i]] = nameState[i];
  }
  Fail.assign(States, 0);
  NextFound.assign(States, -1);
  std::vector<int> queue(1, 0);
  for (size_t head = 0; head < queue.size(); ++head) {
    int state = queue[head];
    if (state != 0) {
      NextFound[state] = FirstFound[Fail[state]];
      if (FirstFound[state] < 0) FirstFound[state] = FirstFound[Fail[state]];
    }
    for (int e = EdgeStart[state]; e < EdgeStart[state + 1]; ++e) {
      int next = EdgeChild[e];
      int fail = 0;
      if (state != 0) {
        fail = Fail[state];
        int to;
        while ((to = Edge(fail, EdgeByte[e])) < 0 && fail != 0) fail = Fail[fail];
        fail = to >= 0 ? to : 0;
      }
      Fail[next] = fail;
      queue.push_back(next);
    }
  }

  Dense = static_cast<long long>(States) * Classes <= kMaxTable;
  if (Dense) {
    // Each entry holds the next state times Classes, shifted left once, with
    // the low bit set when that state recognises a name.
    Step.assign(static_cast<size_t>(States) * Classes, 0);
    for (int e = EdgeStart[0]; e < EdgeStart[1]; ++e) Begins[EdgeByte[e]] = true;
    std::vector<unsigned char> byteOf(Classes, 0);
    for (int c = 0; c < 256; ++c) byteOf[ClassOf[c]] = static_cast<unsigned char>(c);
    for (int state : queue) {
      for (int cls = 1; cls < Classes; ++cls) {
        int to = Edge(state, byteOf[cls]);
        int next;
        if (to >= 0) {
          next = to;
        } else if (state == 0) {
          next = 0;
        } else {
          next = (Step[static_cast<size_t>(Fail[state]) * Classes + cls] >> 1) / Classes;
        }
        Step[static_cast<size_t>(state) * Classes + cls] =
            ((next * Classes) << 1) | (FirstFound[next] >= 0);
      }
    }
  }
  PairsOf.resize(States);
  for (int i = 0; i < Pairs; ++i) {
    if (nameState[i] >= 0) PairsOf[nameState[i]].push_back(i);
  }
  SeenAt.assign(States, 0);
  Scanning = true;
}

// The child of state by byte c, or -1.
int tSubstitutions::Edge(int state, unsigned char c) const {
  const unsigned char* first = EdgeByte.data() + EdgeStart[state];
  const unsigned char* last = EdgeByte.data() + EdgeStart[state + 1];
  const unsigned char* at = std::lower_bound(first, last, c);
  return at != last && *at == c ? EdgeChild[at - EdgeByte.data()] : -1;
}

// Adds to Found the pairs whose names the state recognises, with those along
// its chain of suffixes. A state's whole chain is marked when the state is,
// so a walk stops at the first state already marked, and a scan costs one
// step per byte plus one per state.
void tSubstitutions::Mark(int state) {
  for (int found = FirstFound[state]; found >= 0 && SeenAt[found] != Stamp;
       found = NextFound[found]) {
    SeenAt[found] = Stamp;
    Found.insert(Found.end(), PairsOf[found].begin(), PairsOf[found].end());
  }
}

// Adds to Found the pairs whose names occur in text from position from on.
void tSubstitutions::Scan(const std::string& text, size_t from) {
  if (++Stamp == 0) {
    SeenAt.assign(SeenAt.size(), 0);
    Stamp = 1;
  }
  const unsigned char* p = reinterpret_cast<const unsigned char*>(text.data()) + from;
  const unsigned char* end = reinterpret_cast<const unsigned char*>(text.data()) + text.size();
  if (Dense) {
    int at = 0;
    for (; p < end; ++p) {
      // From the root, bytes that begin no name lead back to it.
      if (at == 0) {
        while (p < end && !Begins[*p]) ++p;
        if (p == end) break;
      }
      int step = Step[at + ClassOf[*p]];
      at = step >> 1;
      if (step & 1) Mark(at / Classes);
    }
    return;
  }
  int state = 0;
  for (; p < end; ++p) {
    int to;
    while ((to = Edge(state, *p)) < 0 && state != 0) state = Fail[state];
    state = to >= 0 ? to : 0;
    if (FirstFound[state] >= 0) Mark(state);
  }
}

void tSubstitutions::Apply(String& text) {
  std::string bytes(text.Text(), text.Length());
  Apply(bytes);
  if (bytes.size() != static_cast<size_t>(text.Length()) || bytes != text.Text())
    text = bytes.c_str();
}

// The found pairs are applied in pair order. A name that a replacement makes
// can only begin within LongestName - 1 characters before the first position
// it changed; the scan that follows starts there. A pair found but no longer
// present replaces nothing.
void tSubstitutions::Apply(std::string& text) {
  if (!Scanning) {
    for (int i = 0; i < Pairs; ++i) Replace(i, text);
    return;
  }
  Found.clear();
  Scan(text, 0);
  std::sort(Found.begin(), Found.end());
  int applied = -1;
  size_t k = 0;
  while (k < Found.size()) {
    int i = Found[k++];
    if (i <= applied) continue;
    applied = i;
    long long first = Replace(i, text);
    if (first < 0) continue;

    Scan(text, static_cast<size_t>(first >= LongestName ? first - (LongestName - 1) : 0));
    std::sort(Found.begin() + k, Found.end());
  }
}

// Replaces pair i's name in text; returns the first position at which the
// text changed, or -1 when the name does not occur.
long long tSubstitutions::Replace(int i, std::string& text) {
  const String& name = PairNames[i];
  const String& value = PairValues[i];
  if (name.Length() == 0 ||
      !ReplaceAllBytes(text.data(), static_cast<int>(text.size()), name.Text(), name.Length(),
                       value.Text(), value.Length(), Work))
    return -1;
  text.swap(Work);
  size_t common = std::min(text.size(), Work.size());
  return std::mismatch(text.begin(), text.begin() + common, Work.begin()).first - text.begin();
}
