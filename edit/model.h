#ifndef RULEFORGE_EDIT_MODEL_H
#define RULEFORGE_EDIT_MODEL_H

#include <vector>

#include "app/filterd.h"
#include "text/str.h"

// The edits of ruleforge-edit, as operations on the document's data sets:
// switching a labelled variant of a record, entering, changing, removing and
// moving entries of a record's two lists, and adding, renaming and removing
// label data sets. An edit the parseable section could not hold, so that the
// saved file would read back as other data, is refused with a reason and
// changes nothing. Refers to the document, which it does not own; positions
// count from 0; list 0 is the ${0} list, list 1 the ${1} list.
class tEditModel {
 public:
  explicit tEditModel(tFilterData& document) : Document(document), Edits(0) {}

  tFilterData& Document;
  // Edits made since the model was opened or last saved.
  int Edits;

  // Each returns 0 when done, or -1 with why set when refused.
  int SetVariant(tClauseData& record, int variant, int on, String& why);
  // typed may hold several entries separated by commas; blanks around each are
  // dropped.
  int InsertEntries(tClauseData& record, int list, int position, const char* typed, String& why);
  int ChangeEntry(tClauseData& record, int list, int position, const char* typed, String& why);
  int RemoveEntry(tClauseData& record, int list, int position, String& why);
  int MoveEntry(tClauseData& record, int list, int from, int to, String& why);
  int AddSet(const char* name, String& why);
  int RenameSet(DListtClauseData& set, const char* name, String& why);
  int RemoveSet(DListtClauseData& set, String& why);

  // The data set of that name, or null.
  DListtClauseData* Set(const String& name) const;

 private:
  int CheckSetName(const DListtClauseData* renamed, const char* name, String& why) const;
};

// The record's list 0 (Values0) or 1 (Values1).
DListtString& ListOf(tClauseData& record, int list);
// The caption of the record's list, or "list 1" / "list 2" when it has none.
String CaptionOf(const tClauseData& record, int list);

// Splits what the user typed into entries: at every comma, blanks and tabs
// around each piece dropped. Refuses, with why, a piece that is empty or holds
// a blank, tab or line end, which the section would not read back as typed.
int TypedEntries(const char* typed, std::vector<String>& entries, String& why);
// Links new elements holding the entries into values before position, or at
// its end when position is past the last entry.
void LinkEntries(DListtString& values, int position, const std::vector<String>& entries);

#endif
