#include "check/stdinput.h"

#include <sys/stat.h>

#include <cstdio>

int StandardInputHoldsData() {
  struct stat status;
  if (fstat(fileno(stdin), &status) != 0) return 0;
  if (!S_ISFIFO(status.st_mode) && !S_ISREG(status.st_mode)) return 0;
  int c = std::getc(stdin);
  if (c == EOF) {
    std::clearerr(stdin);
    return 0;
  }
  std::ungetc(c, stdin);
  return 1;
}
