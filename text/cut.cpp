#include "text/str.h"

#include <cstring>

#include "text/strblock.h"

// Removes exactly what Copy(start, count) returns. An unshared block is closed
// up in place; a shared one leaves the old text to its other holders.
String String::Cut(int start, int count) {
  int length = Block->Length;
  if (start < 0 || start >= length || count <= 0) return Empty;
  int n = length - start < count ? length - start : count;
  String removed(NewBlock(Block->Chars() + start, n, n), tAdopt());
  int rest = length - start - n;
  if (Block->Refs == 1) {
    char* text = Block->Chars();
    std::memmove(text + start, text + start + n, rest);
    text[length - n] = '\0';
    Block->Length = length - n;
  } else {
    tBlock* b = NewBlock(Block->Chars(), start, length - n);
    std::memcpy(b->Chars() + start, Block->Chars() + start + n, rest);
    b->Chars()[length - n] = '\0';
    b->Length = length - n;
    Adopt(b);
  }
  return removed;
}

String String::CutHead(int n) { return Cut(0, n); }
