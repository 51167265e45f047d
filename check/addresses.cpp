#include "check/addresses.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

int Count(const String& text, char c) {
  int n = 0;
  for (const char* p = text.Text(); *p; ++p) n += *p == c;
  return n;
}

int SplitGlued(const String& text, int at, int part, String& split, std::vector<char>& failed);

// After a whole address at at: the end of text, or the next address, right
// after it or after a dot or a ';'.
int NextGlued(const String& text, int at, String& split, std::vector<char>& failed) {
  const char* p = text.Text() + at;
  if (!*p) return 1;
  int next = at + (*p == '.' || *p == ';');
  split += ", ";
  return text.Text()[next] != '\0' && SplitGlued(text, next, 0, split, failed);
}

// The 1 to max digits at p that make a number up to limit, tried one length
// after the other; each is appended to split after lead and the search goes
// on with then. split is restored when none leads anywhere.
template <typename Then>
int TryNumbers(const char* p, int max, int limit, const char* lead, String& split, Then then) {
  int size = split.Length();
  for (int length = 1; length <= max && std::isdigit(static_cast<unsigned char>(p[length - 1]));
       ++length) {
    if (std::atoi(String(p).Head(length).Text()) > limit) break;
    split = split.Head(size) + lead + String(p).Head(length);
    if (then(length)) return 1;
  }
  split = split.Head(size);
  return 0;
}

// Reads text from at on as whole addresses, each with an optional ";bits"
// suffix, of which the current one has part numbers already, and appends them
// to split joined by ", ". failed marks the (position, part) pairs known to
// lead nowhere, which keeps the search linear in the length of text.
int SplitGlued(const String& text, int at, int part, String& split, std::vector<char>& failed) {
  const char* p = text.Text() + at;
  size_t mark = static_cast<size_t>(at) * 5 + static_cast<size_t>(part);
  if (failed[mark]) return 0;
  int found = 0;
  if (part == 4) {
    // A ';' is taken as a list separator before it is taken as ";bits".
    int size = split.Length();
    found = NextGlued(text, at, split, failed);
    if (!found) split = split.Head(size);
    if (!found && *p == ';') {
      found = TryNumbers(p + 1, 2, 32, ";", split, [&](int length) {
        return NextGlued(text, at + 1 + length, split, failed);
      });
    }
  } else if (part == 0 || *p == '.') {
    int start = at + (part > 0);
    found = TryNumbers(text.Text() + start, 3, 255, part > 0 ? "." : "", split, [&](int length) {
      return SplitGlued(text, start + length, part + 1, split, failed);
    });
  }
  failed[mark] = !found;
  return found;
}

}  // namespace

int HoldsSeparators(const String& entry) {
  int first = entry.At(';');
  if (first < 0) return 0;
  if (entry.At(';', first + 1) >= 0) return 1;
  const char* bits = entry.Text() + first + 1;
  size_t digits = std::strspn(bits, "0123456789");
  return digits == 0 || digits > 2 || bits[digits] != '\0' || std::atoi(bits) > 32;
}

int IsAddress(const String& text) {
  const char* p = text.Text();
  for (int part = 0; part < 4; ++part) {
    if (part > 0 && *p++ != '.') return 0;
    int digits = static_cast<int>(std::strspn(p, "0123456789"));
    if (digits < 1 || digits > 3 || std::atoi(p) > 255) return 0;
    p += digits;
  }
  if (*p != ';') return *p == '\0';
  return !HoldsSeparators(text);
}

int SplitAddress(const String& entry) {
  const char* p = entry.Text() + std::strspn(entry.Text(), " \t");
  String first = String(p).Head(static_cast<int>(std::strcspn(p, " \t")));
  return IsAddress(entry.Strip(" \t")) && !IsAddress(first);
}

int GluedAddresses(const String& entry, String& split) {
  if (entry.Length() == 0 || entry.AtFirstNotIn("0123456789.;") >= 0 || entry.At('.') < 0) return 0;
  String found;
  std::vector<char> failed((static_cast<size_t>(entry.Length()) + 1) * 5, 0);
  if (!SplitGlued(entry, 0, 0, found, failed)) return 0;
  // Addresses that only ';' separates are separators, not addresses run
  // together: each ';' of the entry is either one of those or a ";bits".
  int addresses = Count(found, ',') + 1;
  int separators = Count(entry, ';') - Count(found, ';');
  if (separators >= addresses - 1) return 0;
  split = found;
  return 1;
}
