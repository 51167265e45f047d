#ifndef RULEFORGE_EDIT_PREVIEW_H
#define RULEFORGE_EDIT_PREVIEW_H

#include <string>
#include <vector>

#include "app/filterd.h"

// The filter text one clause generates in one data set, line by line: the
// texts of its variants in effect (and its companion's), filled with the
// entries by the program's own expansion, the label name put in for a label
// data set and the substitutions applied. Names are not looked up. The record
// is left as it is: the expansion works on a copy.
std::vector<std::string> PreviewLines(tFilterData& document, DListtClauseData& set,
                                      const tClauseData& first);

// The texts of a fixed clause, which need no data: every single text of its
// four variants, in priority order, with the label name and substitutions.
std::vector<std::string> FixedPreviewLines(tFilterData& document, DListtClauseData& set,
                                           const tClauseTemplate& clause);

#endif
