#include "edit/model.h"

#include <cstring>

#include "edit/readback.h"

namespace {

int Refuse(String& why, const String& reason) {
  why = reason;
  return -1;
}

const DListtClauseData* MainSet(tFilterData& document) {
  return static_cast<DListtClauseData*>(document.DataSets[0]);
}

String Quote(const String& text) { return String("'") + text + "'"; }

// The section writes an empty first list as an empty line, which reads back
// as one empty entry: the second list holds entries only while the first does.
// size0 and size1 are the sizes the lists would have after the edit.
int ListsReadBack(const tClauseData& record, int size0, int size1, String& why) {
  if (size0 > 0 || size1 == 0) return 0;
  return Refuse(why, String("list ") + Quote(CaptionOf(record, 0)) +
                         " must hold an entry while list " + Quote(CaptionOf(record, 1)) +
                         " does: the file would read it back as one empty entry");
}

int CheckPosition(DListtString& values, int position, int end, String& why) {
  if (position >= 0 && position < values.Size() + end) return 0;
  String number;
  number.Make(static_cast<long>(position) + 1);
  return Refuse(why, String("there is no entry ") + number);
}

}  // namespace

void LinkEntries(DListtString& values, int position, const std::vector<String>& entries) {
  if (position >= values.Size()) {
    for (const String& entry : entries) values.ToTail(new tString(entry));
    return;
  }
  values.Goto(position);
  for (const String& entry : entries) {
    values.ToCurrent(new tString(entry));
    values.Next();
  }
}

DListtString& ListOf(tClauseData& record, int list) {
  return list == 0 ? record.Values0 : record.Values1;
}

String CaptionOf(const tClauseData& record, int list) {
  const String& caption = list == 0 ? record.Template->Value0Label : record.Template->Value1Label;
  if (caption.Length() > 0) return caption;
  return list == 0 ? String("list 1") : String("list 2");
}

int TypedEntries(const char* typed, std::vector<String>& entries, String& why) {
  entries.clear();
  String rest(typed);
  for (;;) {
    int comma = rest.At(',');
    String piece = comma < 0 ? rest : rest.Copy(0, comma);
    int first = piece.AtFirstNotIn(" \t");
    int last = first;
    for (int i = first; i >= 0 && i < piece.Length(); ++i)
      if (piece.Text()[i] != ' ' && piece.Text()[i] != '\t') last = i;
    if (first < 0) return Refuse(why, "an entry cannot be empty");
    piece = piece.Copy(first, last - first + 1);
    if (piece.AtFirstIn(" \t") >= 0)
      return Refuse(why, String("an entry cannot hold a blank or tab: the file would read ") +
                             Quote(piece) + " back as " + Quote(piece.Strip(" \t")));
    if (piece.AtFirstIn("\r\n") >= 0) return Refuse(why, "an entry cannot hold a line end");
    entries.push_back(piece);
    if (comma < 0) return 0;
    rest = rest.Copy(comma + 1);
  }
}

int tEditModel::SetVariant(tClauseData& record, int variant, int on, String& why) {
  if (variant < 0 || variant > 3 || record.Template->VariantLabels[variant].Length() == 0)
    return Refuse(why, "the clause has no such variant");
  int old = record.VariantStates[variant];
  record.VariantStates[variant] = on ? 1 : 0;
  if (!StatesReadBack(record)) {
    record.VariantStates[variant] = old;
    return Refuse(why, String("variant ") + Quote(record.Template->VariantLabels[variant]) +
                           " cannot be switched " + (on ? "on" : "off") +
                           ": the template's unlabelled variants before it make the file "
                           "read its state back at another position");
  }
  if (old != record.VariantStates[variant]) ++Edits;
  return 0;
}

int tEditModel::InsertEntries(tClauseData& record, int list, int position, const char* typed,
                              String& why) {
  DListtString& values = ListOf(record, list);
  std::vector<String> entries;
  if (CheckPosition(values, position, 1, why) < 0) return -1;
  if (TypedEntries(typed, entries, why) < 0) return -1;
  if (list == 1 && ListsReadBack(record, record.Values0.Size(), 1, why) < 0) return -1;
  LinkEntries(values, position, entries);
  ++Edits;
  return 0;
}

int tEditModel::ChangeEntry(tClauseData& record, int list, int position, const char* typed,
                            String& why) {
  DListtString& values = ListOf(record, list);
  std::vector<String> entries;
  if (CheckPosition(values, position, 0, why) < 0) return -1;
  if (TypedEntries(typed, entries, why) < 0) return -1;
  values.Goto(position);
  delete values.GetCurrent();
  LinkEntries(values, position, entries);
  ++Edits;
  return 0;
}

int tEditModel::RemoveEntry(tClauseData& record, int list, int position, String& why) {
  DListtString& values = ListOf(record, list);
  if (CheckPosition(values, position, 0, why) < 0) return -1;
  if (list == 0 && ListsReadBack(record, values.Size() - 1, record.Values1.Size(), why) < 0)
    return -1;
  values.Goto(position);
  delete values.GetCurrent();
  ++Edits;
  return 0;
}

int tEditModel::MoveEntry(tClauseData& record, int list, int from, int to, String& why) {
  DListtString& values = ListOf(record, list);
  if (CheckPosition(values, from, 0, why) < 0 || CheckPosition(values, to, 0, why) < 0) return -1;
  if (from == to) return 0;
  values.Goto(from);
  tObject* entry = values.GetCurrent();
  if (to >= values.Size()) {
    values.ToTail(entry);
  } else {
    values.Goto(to);
    values.ToCurrent(entry);
  }
  ++Edits;
  return 0;
}

DListtClauseData* tEditModel::Set(const String& name) const {
  for (DListtClauseData* set : Walk<DListtClauseData>(Document.DataSets))
    if (set->Name(nullptr) == name) return set;
  return nullptr;
}

// The section writes a label data set's name as it stands and reads it back
// as one token: up to a blank, tab or comma, and between quotes when it
// begins with one.
int tEditModel::CheckSetName(const DListtClauseData* renamed, const char* name, String& why) const {
  String text(name);
  if (text.Length() == 0) return Refuse(why, "a data set needs a name");
  if (text.AtFirstIn(" \t,\r\n") >= 0)
    return Refuse(why, String("a data set name cannot hold a blank, tab, comma or line end: ") +
                           "the file would read " + Quote(text) + " back as another name");
  if (std::strchr("\"'`", text.Text()[0]))
    return Refuse(why, String("a data set name cannot begin with a quote character: the file "
                              "would read ") +
                           Quote(text) + " back without it");
  const DListtClauseData* same = Set(text);
  if (same && same != renamed)
    return Refuse(why, String("there is a data set ") + Quote(text) + " already");
  return 0;
}

int tEditModel::AddSet(const char* name, String& why) {
  if (CheckSetName(nullptr, name, why) < 0) return -1;
  DListtClauseData* set = new DListtClauseData(name, &Document.LabelRules);
  set->New();
  Document.DataSets.ToTail(set);
  ++Edits;
  return 0;
}

int tEditModel::RenameSet(DListtClauseData& set, const char* name, String& why) {
  if (&set == MainSet(Document)) return Refuse(why, "the main data set cannot be renamed");
  if (CheckSetName(&set, name, why) < 0) return -1;
  if (set.Name(nullptr) == name) return 0;
  set.Name(name);
  ++Edits;
  return 0;
}

int tEditModel::RemoveSet(DListtClauseData& set, String& why) {
  if (&set == MainSet(Document)) return Refuse(why, "the main data set cannot be removed");
  delete Document.DataSets.Get(&set);
  ++Edits;
  return 0;
}
