#include "text/str.h"

#include <cstring>

#include "text/strblock.h"

// memmem runs in linear time, so a long pattern over a long line stays cheap.
int String::At(const char* s, int start, int count) const {
  int length = Block->Length;
  if (start < 0 || start > length) return -1;
  int m = s ? static_cast<int>(std::strlen(s)) : 0;
  int end = RangeEnd(start, count, length);
  if (end - start < m) return -1;
  if (m == 0) return start;
  const char* text = Block->Chars();
  const void* found = memmem(text + start, end - start, s, m);
  return found ? static_cast<int>(static_cast<const char*>(found) - text) : -1;
}
