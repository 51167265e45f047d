#include "edit/names.h"

#include <cstdlib>

#include "edit/model.h"

namespace {

String Quote(const String& text) { return String("'") + text + "'"; }

// ", " between the items of a list of names.
void Append(String& list, const String& item) {
  if (list.Length() > 0) list += ", ";
  list += item;
}

String Number(long n) {
  String text;
  text.Make(n);
  return text;
}

const tClauseTemplate* FixedNamed(const DListtClauseTemplate* templates, const String& name) {
  if (!templates) return nullptr;
  for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(*templates))
    if ((clause->Flags & tClauseTemplate::FixedClause) && clause->Name == name) return clause;
  return nullptr;
}

}  // namespace

tClauseData* FindClause(DListtClauseData& set, const String& name, String& why) {
  String names;
  for (tClauseData* record : Walk<tClauseData>(set)) {
    if (record->Template->Name == name) return record;
    Append(names, Quote(record->Template->Name));
    if (!record->Partner) continue;
    if (record->Partner->Template->Name == name) return record->Partner;
    Append(names, Quote(record->Partner->Template->Name));
  }
  String where = String("data set ") + Quote(set.Name(nullptr));
  if (FixedNamed(set.Templates, name)) {
    why = String("clause ") + Quote(name) + " of " + where + " is fixed: it has nothing to fill in";
  } else if (names.Length() == 0) {
    why = where + " has no clauses to fill in";
  } else {
    why = where + " has no clause " + Quote(name) + "; its clauses are " + names;
  }
  return nullptr;
}

int FindVariant(const tClauseData& record, const String& name, String& why) {
  String names;
  int shown = 0;
  for (int i = 0; i < 4; ++i) {
    const String& label = record.Template->VariantLabels[i];
    if (label.Length() == 0) continue;
    ++shown;
    if (label == name || Number(shown) == name) return i;
    Append(names, Number(shown) + " " + Quote(label));
  }
  why = String("clause ") + Quote(record.Template->Name) + " has no variant " + Quote(name);
  why += names.Length() > 0 ? String("; its variants are ") + names : String(": it has none");
  return -1;
}

int FindList(const tClauseData& record, const String& name, String& why) {
  for (int list = 0; list < 2; ++list) {
    const String& caption = list == 0 ? record.Template->Value0Label : record.Template->Value1Label;
    if ((caption.Length() > 0 && caption == name) || Number(list + 1) == name) return list;
  }
  why = String("clause ") + Quote(record.Template->Name) + " has no list " + Quote(name) +
        "; its lists are 1 " + Quote(CaptionOf(record, 0)) + ", 2 " + Quote(CaptionOf(record, 1));
  return -1;
}

DListtClauseData* FindSet(tFilterData& document, const String& name, String& why) {
  String names;
  for (DListtClauseData* set : Walk<DListtClauseData>(document.DataSets)) {
    if (set->Name(nullptr) == name) return set;
    Append(names, Quote(set->Name(nullptr)));
  }
  why = String("there is no data set ") + Quote(name) + "; the data sets are " + names;
  return nullptr;
}

int EntryNumber(const String& text) {
  const char* digits = text.Text();
  char* end = nullptr;
  long n = std::strtol(digits, &end, 10);
  if (*digits < '0' || *digits > '9' || *end != '\0' || n < 1 || n > 2147483647L) return -1;
  return static_cast<int>(n - 1);
}
