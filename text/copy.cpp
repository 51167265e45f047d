#include "text/str.h"

#include "text/strblock.h"

String String::Copy(int start, int count) const {
  int length = Block->Length;
  if (start < 0 || start >= length || count <= 0) return Empty;
  int n = length - start < count ? length - start : count;
  return String(NewBlock(Block->Chars() + start, n, n), tAdopt());
}
