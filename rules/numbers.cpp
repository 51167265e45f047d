#include "rules/numbers.h"

#include <climits>
#include <cstdlib>

int ToPriority(const char* text) {
  long n = std::strtol(text, nullptr, 10);
  if (n > INT_MAX) return INT_MAX;
  if (n < INT_MIN) return INT_MIN;
  return static_cast<int>(n);
}
