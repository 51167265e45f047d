#include "text/str.h"

#include <cstring>

// Each read is judged on its own: only its last byte, and the one before, can
// end the line. A NUL byte ends what a read contributes, as the C library's
// string functions see it. A read error counts as the end of the file.
int String::fgets(FILE* f) {
  *this = Empty;
  char buffer[512];
  for (;;) {
    if (!::fgets(buffer, sizeof buffer, f)) return 0;
    size_t n = std::strlen(buffer);
    if (n > 0 && (buffer[n - 1] == '\n' || buffer[n - 1] == '\r')) {
      buffer[--n] = '\0';
      if (n > 0 && (buffer[n - 1] == '\n' || buffer[n - 1] == '\r')) buffer[--n] = '\0';
      Append(buffer, static_cast<int>(n));
      return 1;
    }
    Append(buffer, static_cast<int>(n));
  }
}
