#include "text/str.h"

String operator+(const String& a, const String& b) {
  String sum(a);
  sum += b;
  return sum;
}
