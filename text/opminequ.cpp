#include "text/str.h"

#include <cstring>

String& String::operator-=(const char* s) {
  if (!s || !*s) return *this;
  int at = At(s);
  if (at >= 0) Cut(at, static_cast<int>(std::strlen(s)));
  return *this;
}
