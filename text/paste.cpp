#include "text/str.h"

#include <cstring>

#include "text/strblock.h"

// s may point into this string's own text, so insertion fills a fresh block
// before releasing the old one.
String& String::Paste(const char* s, int pos) {
  int m = s ? static_cast<int>(std::strlen(s)) : 0;
  int length = Block->Length;
  if (pos < 0 || pos >= length) {
    Append(s, m);
    return *this;
  }
  if (m == 0) return *this;
  if (m > MaxLength - length) AllocationFailed();
  tBlock* b = NewBlock(Block->Chars(), pos, length + m);
  std::memcpy(b->Chars() + pos, s, m);
  std::memcpy(b->Chars() + pos + m, Block->Chars() + pos, length - pos);
  b->Chars()[length + m] = '\0';
  b->Length = length + m;
  Adopt(b);
  return *this;
}
