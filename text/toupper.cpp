#include "text/str.h"

#include <cctype>

#include "text/strblock.h"

String& String::ToUpper() {
  Unshare();
  char* text = Block->Chars();
  for (int i = 0; i < Block->Length; ++i) {
    text[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[i])));
  }
  return *this;
}
