#ifndef RULEFORGE_TEXT_SHOWN_H
#define RULEFORGE_TEXT_SHOWN_H

#include "text/str.h"

// text as it may safely be shown on a terminal: every control character
// (below 0x20 other than tab, and 0x7f) is written as \x followed by two
// lower-case hex digits, so that input quoted in a message cannot move the
// cursor, recolour or rewrite the screen of whoever reads it. Everything else,
// bytes above 0x7f included, stays as it is; applied twice it changes nothing
// more.
String Shown(const String& text);
// 1 when text holds a character that Shown escapes, else 0.
int HasControls(const char* text);

#endif
