#ifndef RULEFORGE_EDIT_PREVIEW_H
#define RULEFORGE_EDIT_PREVIEW_H

#include <string>
#include <vector>

#include "app/filterd.h"

// The first lines of a preview, and how many lines follow them. A value text
// made for many pairs of entries contributes its first MaxLines copies only,
// which keeps a preview of a list of 100,000 entries as quick as a short one;
// every line a screen shows is held.
struct tPreview {
  static const int MaxLines = 500;
  std::vector<std::string> Lines;
  long long More = 0;
};

// The filter text one clause generates in one data set, line by line: the
// texts of its variants in effect (and its companion's), filled with the
// entries by the program's own expansion, the label name put in for a label
// data set and the substitutions applied. Names are not looked up. The record
// is left as it is: the expansion works on a copy.
//
// typed, when given, is an entry still being typed: the preview shows it as
// it would be once accepted, and without it when it would be refused.
struct tTypedEntry {
  int Part;      // 0 the record, 1 its companion record
  int List;      // 0 or 1
  int Position;  // the entry it replaces, or, with Insert, goes in before
  bool Insert;
  std::string Text;
};
tPreview PreviewLines(tFilterData& document, DListtClauseData& set, const tClauseData& first,
                      const tTypedEntry* typed = nullptr);

// The texts of a fixed clause, which need no data: every single text of its
// four variants, in priority order, with the label name and substitutions.
tPreview FixedPreviewLines(tFilterData& document, DListtClauseData& set,
                           const tClauseTemplate& clause);

#endif
