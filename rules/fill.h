#ifndef RULEFORGE_RULES_FILL_H
#define RULEFORGE_RULES_FILL_H

#include <string>

#include "text/str.h"

// What fills each place of one generated text: the value places, then the
// label place, in the order they are filled. A null entry leaves its place as
// written. Refers to texts it does not own, which must outlive it.
struct tPlaceFill {
  enum { Value0, Value1, Resolved0, Resolved1, Label, Places };
  const String* With[Places] = {};
};

// The literal method: one ReplaceAll per filled place, in order, on a copy of
// text, so a later place also sees what an earlier value brought in.
String FillStepByStep(const String& text, const tPlaceFill& fill);

// The same text as FillStepByStep, written to out in one pass over text
// wherever that gives the same result, and made step by step where not.
void Fill(const String& text, const tPlaceFill& fill, std::string& out);

#endif
