#include "text/str.h"

#include "text/strblock.h"

int String::AtFirstIn(const char* set, int start, int count) const {
  int length = Block->Length;
  if (start < 0 || start > length) return -1;
  return tByteSet(set).First(Block->Chars(), start, RangeEnd(start, count, length), true);
}
