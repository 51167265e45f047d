#include "text/str.h"

#include "text/strblock.h"

int String::AtFirstNotIn(const char* set, int start, int count) const {
  int length = Block->Length;
  if (start < 0 || start > length) return -1;
  int end = RangeEnd(start, count, length);
  tByteSet members(set);
  const char* text = Block->Chars();
  for (int i = start; i < end; ++i) {
    if (!members.Has(text[i])) return i;
  }
  return -1;
}
