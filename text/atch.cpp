#include "text/str.h"

#include <cstring>

#include "text/strblock.h"

int String::At(char c, int start, int count) const {
  int length = Block->Length;
  if (start < 0 || start > length) return -1;
  int end = RangeEnd(start, count, length);
  if (end <= start) return -1;
  const char* text = Block->Chars();
  const void* found = std::memchr(text + start, c, end - start);
  return found ? static_cast<int>(static_cast<const char*>(found) - text) : -1;
}
