#ifndef RULEFORGE_OUTPUT_OUTPUT_H
#define RULEFORGE_OUTPUT_OUTPUT_H

#include <cstdio>

#include "rules/clauslst.h"
#include "rules/progress.h"
#include "text/dliststr.h"

// What the output takes from the template besides the data sets: its title,
// the priority at which the label data sets' texts go in (FirstLabel), and the
// substitution pairs. Refers to the document's fields, which outlive it.
struct tOutputFrame {
  const char* Title;
  int FirstLabel;
  const DListtString& Names;
  const DListtString& Values;
};

// Writes the whole output of sets to out: the parseable section, then the
// filter text. shownName names out in messages. Returns 0; -1 after error 8,
// when out could not be written; or the negative answer of progress, which
// ends the writing. Expanding takes the empty entries out of the records'
// value lists; the resolver, when one is wanted, must exist already.
int WriteOutput(FILE* out, const char* shownName, DListOfDListtClauseData& sets,
                const tOutputFrame& frame, tProgress& progress);

#endif
