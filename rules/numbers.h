#ifndef RULEFORGE_RULES_NUMBERS_H
#define RULEFORGE_RULES_NUMBERS_H

// The decimal number at the start of text as strtol reads it (0 without
// digits), held to the range of a signed 32-bit value.
int ToPriority(const char* text);

// 1 when value, read from text by ToPriority, was held to the range: the
// number written lies beyond it.
int IsHeld(int value, const char* text);

#endif
