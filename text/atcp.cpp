#include "text/str.h"

#include <cstring>

#include "text/strblock.h"

// FindBytes stays linear (a short pattern costs at most its length in compares
// per byte, a long one goes to memmem) and skips memmem's setup on the short
// patterns and lines of most calls.
int String::At(const char* s, int start, int count) const {
  int length = Block->Length;
  if (start < 0 || start > length) return -1;
  int m = s ? static_cast<int>(std::strlen(s)) : 0;
  int end = RangeEnd(start, count, length);
  if (end - start < m) return -1;
  if (m == 0) return start;
  const char* text = Block->Chars();
  const char* found = FindBytes(text + start, text + end, s, m);
  return found ? static_cast<int>(found - text) : -1;
}

int String::StartsWith(const char* s) const {
  size_t m = s ? std::strlen(s) : 0;
  return m <= static_cast<size_t>(Block->Length) && std::memcmp(Block->Chars(), s, m) == 0;
}
