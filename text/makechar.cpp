#include "text/str.h"

#include <cstring>

#include "text/strblock.h"

// Meant for a handle without a block; one that still holds a block releases
// it, so a misplaced call costs nothing worse than the new block.
void String::Make(const char* s) {
  int n = s ? static_cast<int>(std::strlen(s)) : 0;
  tBlock* old = Block;
  Block = NewBlock(s, n, n);
  Release(old);
}
