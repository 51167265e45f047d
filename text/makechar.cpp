#include "text/str.h"

#include <cstring>

#include "text/strblock.h"

void String::Make(const char* s) {
  int n = s ? static_cast<int>(std::strlen(s)) : 0;
  Block = NewBlock(s, n, n);
}
