#include "text/str.h"

#include <cstring>

#include "text/strblock.h"

String& String::operator=(const String& o) {
  Share(o);
  return *this;
}

// s may lie inside this string's own text: the new block is filled before the
// old one is released.
String& String::operator=(const char* s) {
  int n = s ? static_cast<int>(std::strlen(s)) : 0;
  Adopt(NewBlock(s, n, n));
  return *this;
}
