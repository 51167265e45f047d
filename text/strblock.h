#ifndef RULEFORGE_TEXT_STRBLOCK_H
#define RULEFORGE_TEXT_STRBLOCK_H

#include <climits>
#include <cstring>

#include "text/nomem.h"
#include "text/str.h"

// The shared text block behind a String: a 16-bit holder count, the length and
// the room for text that follow the header in the same allocation. Only the
// text/ sources see this layout; every handle treats it through String.
struct String::tBlock {
  unsigned short Refs;
  int Length;
  // Characters that fit without reallocating, not counting the NUL.
  int Capacity;

  char* Chars() { return reinterpret_cast<char*>(this + 1); }
};

// The longest text a block holds; the margin keeps length + 1 and the header
// size from overflowing.
const int MaxLength = INT_MAX - 64;

// The most holders one block can have; sharing beyond it takes a private copy.
const unsigned short MaxRefs = 65535;

// The end (exclusive) of the search range start .. start + count - 1 within a
// text of the given length; count may be String::All without overflowing.
inline int RangeEnd(int start, int count, int length) {
  long long end = static_cast<long long>(start) + count;
  return end < length ? static_cast<int>(end) : length;
}

// A 256-entry membership table for the byte sets of the search and strip
// operations, so that each of them reads its text once.
struct tByteSet {
  bool In[256];
  explicit tByteSet(const char* set) : In() {
    for (; set && *set; ++set) In[static_cast<unsigned char>(*set)] = true;
  }
  bool Has(char c) const { return In[static_cast<unsigned char>(c)]; }
  // The first position in start .. end - 1 whose byte is (or, with member
  // false, is not) in the set; -1 when there is none.
  int First(const char* text, int start, int end, bool member) const {
    for (int i = start; i < end; ++i) {
      if (Has(text[i]) == member) return i;
    }
    return -1;
  }
};

// The first occurrence of the m bytes at needle (m >= 1) within [p, end), or
// null. Short needles are found by their first byte and a compare, which on
// the short texts of most calls beats memmem's setup and costs at most m
// compares per byte; longer ones go to memmem, which stays linear.
inline const char* FindBytes(const char* p, const char* end, const char* needle, int m) {
  if (end - p < m) return nullptr;
  if (m > 8) return static_cast<const char*>(memmem(p, end - p, needle, m));
  const char* last = end - m;
  while (p <= last) {
    p = static_cast<const char*>(std::memchr(p, needle[0], last - p + 1));
    if (!p) return nullptr;
    if (std::memcmp(p + 1, needle + 1, m - 1) == 0) return p;
    ++p;
  }
  return nullptr;
}

#endif
