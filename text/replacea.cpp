#include "text/str.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "text/nomem.h"
#include "text/replace.h"
#include "text/strblock.h"

namespace {

// The rescan's caps, resource bounds rather than limits of the result: a
// hundred million replacements for one text while it stays within 64 MiB, and
// a hundred million for all texts of a run together (about 20 ms a million on
// this kind of work, so a run's rescans end within a few seconds).
long long TextReplacements = 100000000;
long long RunReplacements = 100000000;
long long RescanLength = 64LL << 20;
long long RunReplacementsLeft = RunReplacements;

// One left-to-right pass: each search resumes right after the text just
// inserted, so an inserted `to` is never searched again.
std::string ReplaceOnce(const char* text, int n, const char* from, int m, const char* to, int t) {
  std::string out;
  out.reserve(n);
  const char* rest = text;
  const char* end = text + n;
  while (const char* at = FindBytes(rest, end, from, m)) {
    out.append(rest, at - rest).append(to, t);
    rest = at + m;
  }
  return out.append(rest, end - rest);
}

// Gives the result of "replace the first occurrence, then search again from
// the start" with work in the length of `from` and `to` per replacement.
// Characters move one at a time onto `out`, the inserted texts first, then the
// rest of the input; states[i] is how much of `from` the output ends with after
// out[i], so the first time it reaches m the output ends with the leftmost
// occurrence of the whole text. Popping that occurrence and feeding `to` next
// replays exactly what the rescan would see. Returns false when more than
// `maxReplacements` replacements would be needed or the text would grow past
// `maxLength`; `replacements` says how many were made either way. The output
// and its states are kept with lengths of their own, so that a pop costs no
// call; a state fits the narrowest type that holds m.
template <class tState>
bool Rescan(const char* text, int n, const char* from, int m, const char* to, int t,
            long long maxReplacements, size_t maxLength, std::string& out,
            long long& replacements) {
  std::vector<int> fallback(m, 0);
  for (int i = 1, k = 0; i < m; ++i) {
    while (k > 0 && from[i] != from[k]) k = fallback[k - 1];
    if (from[i] == from[k]) ++k;
    fallback[i] = k;
  }
  std::vector<tState> states(n + 1);
  out.assign(n + 1, '\0');
  size_t length = 0;
  std::string pending;  // a stack: its back is the next character to feed
  int next = 0;
  replacements = 0;
  for (;;) {
    char c;
    if (!pending.empty()) {
      c = pending.back();
      pending.pop_back();
    } else if (next < n) {
      c = text[next++];
    } else {
      out.resize(length);
      return true;
    }
    int q = length == 0 ? 0 : states[length - 1];
    while (q > 0 && from[q] != c) q = fallback[q - 1];
    if (from[q] == c) ++q;
    if (length == out.size()) {
      // The whole text never outgrows the larger of maxLength and n.
      size_t grown = std::min(2 * length, std::max(maxLength, static_cast<size_t>(n)) + 1);
      out.resize(grown);
      states.resize(grown);
    }
    out[length] = c;
    states[length++] = static_cast<tState>(q);
    if (q == m) {
      if (++replacements > maxReplacements) return false;
      length -= m;
      pending.append(to, t);
      std::reverse(pending.end() - t, pending.end());
      if (length + pending.size() + (n - next) > maxLength) return false;
    }
  }
}

// The single pass into out, giving up (false) as soon as the rescan would
// differ from it. After a replacement the rescan looks again from the start;
// the text before the replaced occurrence held none, so a new one can only
// start within m - 1 characters before the inserted text or inside it.
// Finding none in that window after every replacement proves that the rescan
// resumes after the inserted text, as the single pass does. `at` is the
// first occurrence.
bool ReplaceChecked(const char* text, int n, const char* at, const char* from, int m,
                    const char* to, int t, std::string& out) {
  out.clear();
  const char* rest = text;
  const char* end = text + n;
  while (at) {
    out.append(rest, at - rest);
    size_t first = out.size() >= static_cast<size_t>(m - 1) ? out.size() - (m - 1) : 0;
    out.append(to, t);
    size_t put = out.size();
    rest = at + m;
    // Fewer than m characters follow the inserted text in the window, so an
    // occurrence found there starts before the inserted text's end. They are
    // appended for the check and taken off again.
    out.append(rest, end - rest < m - 1 ? end - rest : m - 1);
    bool made = FindBytes(out.data() + first, out.data() + out.size(), from, m);
    out.resize(put);
    if (made) return false;
    at = FindBytes(rest, end, from, m);
  }
  out.append(rest, end - rest);
  return true;
}

}  // namespace

bool ReplaceAllBytes(const char* text, int n, const char* from, int m, const char* to, int t,
                     std::string& out) {
  const char* at = FindBytes(text, text + n, from, m);
  if (!at) return false;

  // When `to` contains `from` the rescan never ends: every replacement leaves a
  // new occurrence behind, so the single pass is the only useful answer.
  bool rescanned = false;
  if (!FindBytes(to, to + t, from, m)) {
    // Usually no replacement brings a new occurrence about, and the single
    // pass is the rescan's result.
    if (ReplaceChecked(text, n, at, from, m, to, t, out)) {
      if (out.size() > static_cast<size_t>(MaxLength)) AllocationFailed();
      return true;
    }
    // The rescan can also run forever without that (replacing "ab" by "bbaa"
    // in "aab" re-creates "ab" with its left neighbour every time), and no
    // cheap test tells the two apart from a long cascade that ends (replacing
    // "ab" by "bba" in 17 "a" then "b" takes 131,071 replacements). So its
    // work is bounded: the text's and the run's caps above, so that however
    // many texts diverge they add a few seconds at most. Past a cap the
    // single-pass result stands, as for `to` containing `from`.
    size_t maxLength = static_cast<size_t>(RescanLength < MaxLength ? RescanLength : MaxLength);
    long long cap = RunReplacementsLeft < TextReplacements ? RunReplacementsLeft : TextReplacements;
    long long used = 0;
    rescanned = m < 256 ? Rescan<unsigned char>(text, n, from, m, to, t, cap, maxLength, out, used)
                        : Rescan<int>(text, n, from, m, to, t, cap, maxLength, out, used);
    RunReplacementsLeft -= used < cap ? used : cap;
  }
  if (!rescanned) out = ReplaceOnce(text, n, from, m, to, t);
  if (out.size() > static_cast<size_t>(MaxLength)) AllocationFailed();
  return true;
}

long long ReplacementBudgetLeft() { return RunReplacementsLeft; }

void RestartReplacementBudget() { RunReplacementsLeft = RunReplacements; }

void SetReplacementBounds(long long perText, long long perRun, long long length) {
  TextReplacements = perText;
  RunReplacements = perRun;
  RescanLength = length;
  RestartReplacementBudget();
}

String& String::ReplaceAll(const char* from, const char* to) {
  if (!from || !*from) return *this;
  if (!to) to = "";
  std::string result;
  if (ReplaceAllBytes(Block->Chars(), Block->Length, from, static_cast<int>(std::strlen(from)), to,
                      static_cast<int>(std::strlen(to)), result)) {
    const int length = static_cast<int>(result.size());
    Adopt(NewBlock(result.data(), length, length));
  }
  return *this;
}
