#include "text/str.h"

#include "text/strblock.h"

int String::AtLast(char c, int start, int count) const {
  int length = Block->Length;
  if (start < 0 || start > length) return -1;
  const char* text = Block->Chars();
  for (int i = RangeEnd(start, count, length) - 1; i >= start; --i) {
    if (text[i] == c) return i;
  }
  return -1;
}
