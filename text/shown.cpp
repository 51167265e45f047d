#include "text/shown.h"

namespace {

int IsControl(unsigned char c) { return (c < 0x20 && c != '\t') || c == 0x7f; }

}  // namespace

int HasControls(const char* text) {
  for (; *text; ++text)
    if (IsControl(static_cast<unsigned char>(*text))) return 1;
  return 0;
}

String Shown(const String& text) {
  const char* p = text.Text();
  int length = text.Length();
  int first = 0;
  while (first < length && !IsControl(static_cast<unsigned char>(p[first]))) ++first;
  // Nothing to escape: the same text, so a share will do.
  if (first == length) return text;
  static const char hex[] = "0123456789abcdef";
  String shown = text.Head(first);
  for (int i = first; i < length; ++i) {
    unsigned char c = static_cast<unsigned char>(p[i]);
    if (!IsControl(c)) {
      int run = i;
      while (run < length && !IsControl(static_cast<unsigned char>(p[run]))) ++run;
      shown += text.Copy(i, run - i);
      i = run - 1;
      continue;
    }
    char escape[] = {'\\', 'x', hex[c >> 4], hex[c & 15], '\0'};
    shown += escape;
  }
  return shown;
}
