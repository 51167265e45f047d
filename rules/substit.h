#ifndef RULEFORGE_RULES_SUBSTIT_H
#define RULEFORGE_RULES_SUBSTIT_H

#include "text/dliststr.h"
#include "text/str.h"

// The template's substitutions, applied to a generated text pair by pair in
// file order: every occurrence of a name is replaced by its value, and a later
// pair sees the result of the earlier ones. Refers to the two lists, which must
// outlive it and stay unchanged while it is in use.
class tSubstitutions {
 public:
  tSubstitutions(DListtString& names, DListtString& values);
  void Apply(String& text);

 private:
  DListtString& Names;
  DListtString& Values;
};

#endif
