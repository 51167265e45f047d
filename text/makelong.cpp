#include "text/str.h"

#include <cstdio>

// Wide enough for the most negative 64-bit long and its NUL.
void String::Make(long n) {
  char digits[24];
  std::snprintf(digits, sizeof digits, "%ld", n);
  Make(digits);
}
