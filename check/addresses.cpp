#include "check/addresses.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

int Count(const String& text, char c) {
  int n = 0;
  for (const char* p = text.Text(); *p; ++p) n += *p == c;
  return n;
}

// The reading of an entry as addresses run together, one character position
// and state at a time: states 0 to 3 are "this many numbers of the current
// address read", kWhole "a whole address read", kBits "its ;bits read too".
// Between two addresses stands nothing, a dot or a ';'; a ';' after a whole
// address is taken as such a separator before it is taken as ";bits".
class tGlued {
 public:
  explicit tGlued(const std::string& text)
      : Text(text),
        Size(static_cast<int>(text.size())),
        Ends(static_cast<size_t>(Size + 1) * 6, 0) {
    // From the end backwards, so that each state's successors are known.
    for (int at = Size; at >= 0; --at) {
      for (int state : {3, 2, 1, 0, kBits, kWhole})
        Ends[Index(at, state)] = Step(at, state, nullptr);
    }
  }
  // Whether the whole text reads so; split then holds the addresses joined
  // by ", ".
  bool Read(std::string& split) const {
    if (!Ends[Index(0, 0)]) return false;
    int at = 0, state = 0;
    while (at < Size || state < kWhole) {
      std::pair<int, int> next;
      Step(at, state, &next);
      int from = at + (state > 0 && state < kWhole);
      if (state < kWhole) {
        if (state > 0) split += '.';
      } else if (next.second == kBits) {
        split += ';';
        ++from;
      } else {
        split += ", ";
        from = next.first;
      }
      split.append(Text, static_cast<size_t>(from), static_cast<size_t>(next.first - from));
      at = next.first;
      state = next.second;
    }
    return true;
  }

 private:
  static const int kWhole = 4, kBits = 5;
  const std::string& Text;
  int Size;
  std::vector<char> Ends;  // per (position, state): the rest reads to the end

  size_t Index(int at, int state) const {
    return static_cast<size_t>(at) * 6 + static_cast<size_t>(state);
  }
  bool Reaches(int at, int state) const { return at <= Size && Ends[Index(at, state)]; }
  bool Digit(int at) const {
    return at < Size && std::isdigit(static_cast<unsigned char>(Text[at]));
  }
  bool Number(int at, int length, int limit) const {
    for (int i = 0; i < length; ++i)
      if (!Digit(at + i)) return false;
    return std::atoi(Text.substr(static_cast<size_t>(at), static_cast<size_t>(length)).c_str()) <=
           limit;
  }
  // Whether (at, state) reads to the end; the first way found goes to next.
  bool Step(int at, int state, std::pair<int, int>* next) const {
    auto go = [&](int to, int toState) {
      if (!Reaches(to, toState)) return false;
      if (next) *next = {to, toState};
      return true;
    };
    if (state < kWhole) {
      int from = at + (state > 0);
      if (state > 0 && (at >= Size || Text[at] != '.')) return false;
      for (int length = 1; length <= 3; ++length)
        if (Number(from, length, 255) && go(from + length, state + 1)) return true;
      return false;
    }
    if (at == Size) return true;
    bool separator = Text[at] == '.' || Text[at] == ';';
    if (separator && at + 1 < Size && go(at + 1, 0)) return true;
    if (Digit(at) && go(at, 0)) return true;
    if (state == kBits || Text[at] != ';') return false;
    for (int length = 1; length <= 2; ++length)
      if (Number(at + 1, length, 32) && go(at + 1 + length, kBits)) return true;
    return false;
  }
};

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
  std::string text = entry.Text(), read;
  if (!tGlued(text).Read(read)) return 0;
  String found = read.c_str();
  // Addresses that only ';' separates are separators, not addresses run
  // together: each ';' of the entry is either one of those or a ";bits".
  int addresses = Count(found, ',') + 1;
  int separators = Count(entry, ';') - Count(found, ';');
  if (separators >= addresses - 1) return 0;
  split = found;
  return 1;
}
