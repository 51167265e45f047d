#ifndef RULEFORGE_CHECK_ADDRESSES_H
#define RULEFORGE_CHECK_ADDRESSES_H

#include "text/str.h"

// How an entry of a data list reads as addresses: whole, split by a stray
// blank, run together with the next one, or holding ';' separators. Only the
// text is looked at; no name is looked up.

// 1 when text is four decimal numbers from 0 to 255 joined by dots, with or
// without a ";bits" suffix (bits 0 to 32), else 0.
int IsAddress(const String& text);
// 1 when entry holds a ';' that is not the one ";bits" suffix of a network
// (a number of bits from 0 to 32 after the only ';'), else 0.
int HoldsSeparators(const String& entry);
// 1 when the blanks inside entry split one address ("10.1.0. 26"), which
// read without them is what was meant, else 0.
int SplitAddress(const String& entry);
// 1 when entry, made of digits, dots and ';' only, reads as two or more
// addresses or networks run together ("192.0.2.53192.0.2.54",
// "10.4.0.0;1610.5.0.0;16"); split is then those joined by ", ". Else 0, and
// split is left alone.
int GluedAddresses(const String& entry, String& split);

#endif
