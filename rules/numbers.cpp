#include "rules/numbers.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

int ToPriority(const char* text) {
  long n = std::strtol(text, nullptr, 10);
  if (n > INT_MAX) return INT_MAX;
  if (n < INT_MIN) return INT_MIN;
  return static_cast<int>(n);
}

int IsHeld(int value, const char* text) {
  if (value != INT_MAX && value != INT_MIN) return 0;
  // Only a value at a limit can have been held; reading the text again tells a
  // limit written out exactly from a number beyond it.
  errno = 0;
  long n = std::strtol(text, nullptr, 10);
  return errno == ERANGE || n > INT_MAX || n < INT_MIN;
}
