#include "text/str.h"

#include <cstring>

// Each read is judged on its own: only its last byte, and the one before, can
// end the line. A NUL byte ends what a read contributes, as the C library's
// string functions see it; a line end hidden behind it is lost, and the next
// line is joined on. A read error counts as the end of the file.
int String::fgets(FILE* f, tLineRead* read) {
  *this = Empty;
  if (read) *read = tLineRead();
  char buffer[512];
  const size_t last = sizeof buffer - 1;
  for (;;) {
    // A read that fills the buffer puts its closing NUL byte at the end.
    buffer[last] = 'x';
    if (!::fgets(buffer, sizeof buffer, f)) return 0;
    size_t n = std::strlen(buffer);
    if (n > 0 && (buffer[n - 1] == '\n' || buffer[n - 1] == '\r')) {
      buffer[--n] = '\0';
      if (n > 0 && (buffer[n - 1] == '\n' || buffer[n - 1] == '\r')) buffer[--n] = '\0';
      Append(buffer, static_cast<int>(n));
      return 1;
    }
    // Text shorter than the read is cut by a NUL byte. A read stops short of
    // a full buffer only at a line end or at the end of the input, so a short
    // read before the end ended at a line end that the text does not show.
    // (A NUL byte in a last line without a line end goes unseen.)
    if (read && n < last) {
      int full = buffer[last] == '\0';
      int lineEnd = full ? buffer[last - 1] == '\n' : !std::feof(f) && !std::ferror(f);
      if (full || lineEnd) read->NulBytes = 1;
      read->Joined += lineEnd;
    }
    Append(buffer, static_cast<int>(n));
  }
}
