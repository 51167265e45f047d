#include "text/str.h"

#include <cstring>

String& String::operator+=(const char* s) {
  if (s) Append(s, static_cast<int>(std::strlen(s)));
  return *this;
}

String& String::operator+=(const String& s) {
  Append(s.Text(), s.Length());
  return *this;
}
