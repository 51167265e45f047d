#include "rules/substit.h"

#include <algorithm>

#include "text/replace.h"

namespace {

// The largest transition table built, in entries; names beyond it are applied
// pair by pair, as they are then few or the texts they can occur in are long.
const long long kMaxTable = 1 << 22;

}  // namespace

tSubstitutions::tSubstitutions(DListtString& names, DListtString& values)
    : Names(names),
      Values(values),
      Pairs(names.Size() < values.Size() ? names.Size() : values.Size()),
      Scanning(false),
      ClassOf(),
      Classes(1),
      Stamp(0) {
  for (int i = 0; i < Pairs; ++i) {
    PairNames.push_back(*Names[i]);
    PairValues.push_back(*Values[i]);
  }
  Build();
}

// A trie of the names whose missing edges are filled in breadth first from
// each state's longest proper suffix that is also a state (Aho-Corasick). Bytes
// that occur in no name share class 0, which leads back to the root.
void tSubstitutions::Build() {
  long long total = 1;
  for (const String& name : PairNames) {
    total += name.Length();
    for (int k = 0; k < name.Length(); ++k) {
      unsigned char c = static_cast<unsigned char>(name.Text()[k]);
      if (!ClassOf[c]) ClassOf[c] = static_cast<unsigned char>(Classes++);
    }
  }
  if (Pairs == 0 || total * Classes > kMaxTable) return;

  Goto.assign(Classes, -1);
  FirstFound.assign(1, -1);
  int states = 1;
  for (const String& name : PairNames) {
    int s = 0;
    for (int k = 0; k < name.Length(); ++k) {
      int c = ClassOf[static_cast<unsigned char>(name.Text()[k])];
      if (Goto[s * Classes + c] < 0) {
        Goto[s * Classes + c] = states++;
        Goto.resize(static_cast<size_t>(states) * Classes, -1);
        FirstFound.push_back(-1);
      }
      s = Goto[s * Classes + c];
    }
    NameState.push_back(name.Length() > 0 ? s : -1);
    if (name.Length() > 0) FirstFound[s] = s;
  }

  std::vector<int> fail(states, 0);
  NextFound.assign(states, -1);
  std::vector<int> queue;
  queue.reserve(states);
  for (int c = 0; c < Classes; ++c) {
    int& next = Goto[c];
    if (next < 0) {
      next = 0;
    } else {
      queue.push_back(next);
    }
  }
  for (size_t head = 0; head < queue.size(); ++head) {
    int s = queue[head];
    // The suffix chain of s continues at its fail state.
    NextFound[s] = FirstFound[fail[s]];
    if (FirstFound[s] < 0) FirstFound[s] = FirstFound[fail[s]];
    for (int c = 0; c < Classes; ++c) {
      int& next = Goto[s * Classes + c];
      int viaFail = Goto[fail[s] * Classes + c];
      if (next < 0) {
        next = viaFail;
      } else {
        fail[next] = viaFail;
        queue.push_back(next);
      }
    }
  }
  PairsOf.resize(states);
  for (int i = 0; i < Pairs; ++i) {
    if (NameState[i] >= 0) PairsOf[NameState[i]].push_back(i);
  }
  SeenAt.assign(states, 0);
  Scanning = true;
}

// Lists in Found the pairs whose names occur in text. A state's whole suffix
// chain is marked when the state is, so a walk stops at the first state
// already marked, and the scan costs one step per byte plus one per state.
void tSubstitutions::Scan(const std::string& text) {
  Found.clear();
  if (++Stamp == 0) {
    SeenAt.assign(SeenAt.size(), 0);
    Stamp = 1;
  }
  const unsigned char* p = reinterpret_cast<const unsigned char*>(text.data());
  const unsigned char* end = p + text.size();
  int s = 0;
  for (; p < end; ++p) {
    s = Goto[s * Classes + ClassOf[*p]];
    for (int found = FirstFound[s]; found >= 0 && SeenAt[found] != Stamp;
         found = NextFound[found]) {
      SeenAt[found] = Stamp;
      Found.insert(Found.end(), PairsOf[found].begin(), PairsOf[found].end());
    }
  }
  std::sort(Found.begin(), Found.end());
}

void tSubstitutions::Apply(String& text) {
  std::string bytes(text.Text(), text.Length());
  Apply(bytes);
  if (bytes.size() != static_cast<size_t>(text.Length()) || bytes != text.Text())
    text = bytes.c_str();
}

void tSubstitutions::Apply(std::string& text) {
  // Replaces pair i's name in text; false when it does not occur.
  auto replace = [&](int i) {
    const String& name = PairNames[i];
    const String& value = PairValues[i];
    if (name.Length() == 0 ||
        !ReplaceAllBytes(text.data(), static_cast<int>(text.size()), name.Text(), name.Length(),
                         value.Text(), value.Length(), Work))
      return false;
    text.swap(Work);
    return true;
  };
  if (!Scanning) {
    for (int i = 0; i < Pairs; ++i) replace(i);
    return;
  }
  Scan(text);
  int applied = -1;
  size_t k = 0;
  while (k < Found.size()) {
    int i = Found[k++];
    if (i <= applied) continue;
    applied = i;
    // Later pairs must see the names that the replacement removed or made.
    if (replace(i)) {
      Scan(text);
      k = 0;
    }
  }
}
