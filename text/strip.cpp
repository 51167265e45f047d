#include "text/str.h"

#include "text/strblock.h"

String String::Strip(const char* set) const {
  tByteSet strip(set);
  int length = Block->Length;
  const char* text = Block->Chars();
  int first = 0;
  while (first < length && !strip.Has(text[first])) ++first;
  // Nothing to remove: the same text, so a share will do.
  if (first == length) return *this;
  tBlock* b = NewBlock(text, first, length - 1);
  char* out = b->Chars();
  int kept = first;
  for (int i = first + 1; i < length; ++i) {
    if (!strip.Has(text[i])) out[kept++] = text[i];
  }
  out[kept] = '\0';
  b->Length = kept;
  return String(b, tAdopt());
}
