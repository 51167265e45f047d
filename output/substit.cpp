#include "output/substit.h"

#include <algorithm>
#include <unordered_map>

#include "text/replace.h"

namespace {

// Names of more characters than this in all are applied pair by pair: they are
// then few or the texts they can occur in are long.
const long long kMaxNameCharacters = 1 << 20;

}  // namespace

tSubstitutions::tSubstitutions(const DListtString& names, const DListtString& values)
    : LongestName(0), Stamp(0) {
  int pairs = names.Size() < values.Size() ? names.Size() : values.Size();
  for (const tString* name : Walk<const tString>(names)) {
    if (static_cast<int>(PairNames.size()) == pairs) break;
    PairNames.push_back(*name);
  }
  for (const tString* value : Walk<const tString>(values)) {
    if (static_cast<int>(PairValues.size()) == pairs) break;
    PairValues.push_back(*value);
  }
  long long total = 0;
  for (const String& name : PairNames) {
    total += name.Length();
    if (name.Length() > LongestName) LongestName = name.Length();
  }
  if (total == 0 || total > kMaxNameCharacters) return;
  Names.reset(new tNameAutomaton(PairNames));
  SeenAt.assign(Names->States(), 0);
}

// Adds to Found the pairs whose names the state recognises, with those along
// its chain of suffixes. A state's whole chain is marked when the state is,
// so a walk stops at the first state already marked, and a scan costs one
// step per byte plus one per state.
void tSubstitutions::Mark(int state) {
  for (int found = Names->FirstFound(state); found >= 0 && SeenAt[found] != Stamp;
       found = Names->NextFound(found)) {
    SeenAt[found] = Stamp;
    const std::vector<int>& pairs = Names->NamesOf(found);
    Found.insert(Found.end(), pairs.begin(), pairs.end());
  }
}

// Adds to Found the pairs whose names occur in text from position from on.
void tSubstitutions::Scan(const std::string& text, size_t from) {
  if (++Stamp == 0) {
    SeenAt.assign(SeenAt.size(), 0);
    Stamp = 1;
  }
  Names->Scan(text.data() + from, text.size() - from, [this](int state) { Mark(state); });
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
  if (!Names) {
    for (size_t i = 0; i < PairNames.size(); ++i) Replace(static_cast<int>(i), text);
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
