#include "edit/commands.h"

#include <cstring>

#include "app/common.h"
#include "edit/names.h"
#include "edit/show.h"

struct tCommandRun::tCommand {
  const char* Name;
  int Words;
  int (tCommandRun::*Run)(char** words);
  const char* Usage;
};

const tCommandRun::tCommand tCommandRun::Commands[] = {
    {"show", 0, &tCommandRun::Show, "show"},
    {"show-clause", 1, &tCommandRun::ShowClause, "show-clause CLAUSE"},
    {"sets", 0, &tCommandRun::Sets, "sets"},
    {"in", 1, &tCommandRun::In, "in SET"},
    {"on", 2, &tCommandRun::On, "on CLAUSE VARIANT"},
    {"off", 2, &tCommandRun::Off, "off CLAUSE VARIANT"},
    {"add", 3, &tCommandRun::Add, "add CLAUSE LIST ENTRY"},
    {"insert", 4, &tCommandRun::Insert, "insert CLAUSE LIST N ENTRY"},
    {"change", 4, &tCommandRun::Change, "change CLAUSE LIST N ENTRY"},
    {"remove", 3, &tCommandRun::Remove, "remove CLAUSE LIST ENTRY"},
    {"remove-at", 3, &tCommandRun::RemoveAt, "remove-at CLAUSE LIST N"},
    {"move", 4, &tCommandRun::Move, "move CLAUSE LIST N M"},
    {"clear", 2, &tCommandRun::Clear, "clear CLAUSE LIST"},
    {"new-set", 1, &tCommandRun::NewSet, "new-set NAME"},
    {"rename-set", 2, &tCommandRun::RenameSet, "rename-set NAME NEWNAME"},
    {"remove-set", 1, &tCommandRun::RemoveSet, "remove-set NAME"},
};

tCommandRun::tCommandRun(tEditModel& model, FILE* out)
    : Model(model), Out(out), Current(static_cast<DListtClauseData*>(model.Document.DataSets[0])) {}

int tCommandRun::Run(int count, char** words) {
  const int known = sizeof Commands / sizeof Commands[0];
  for (int i = 0; i < count;) {
    const tCommand* command = nullptr;
    String names;
    for (int c = 0; c < known && !command; ++c) {
      if (std::strcmp(Commands[c].Name, words[i]) == 0) command = &Commands[c];
      names += String(c == 0 ? "" : ", ") + Commands[c].Name;
    }
    if (!command) {
      Error(30, String("Unknown command '") + words[i] + "'; the commands are " + names + ".");
      return 30;
    }
    if (i + 1 + command->Words > count) {
      Error(30,
            String("Command '") + command->Name + "' is short of words. Use: " + command->Usage);
      return 30;
    }
    int status = (this->*command->Run)(words + i + 1);
    if (status != 0) {
      Error(status, String(command->Name) + ": " + Why + ".");
      return status;
    }
    i += 1 + command->Words;
  }
  return 0;
}

int tCommandRun::Clause(const char* name, tClauseData*& record) {
  record = FindClause(*Current, name, Why);
  return record ? 0 : 30;
}

int tCommandRun::ClauseList(char** words, tClauseData*& record, int& list) {
  if (Clause(words[0], record) != 0) return 30;
  list = FindList(*record, words[1], Why);
  return list < 0 ? 30 : 0;
}

int tCommandRun::Position(const char* word, int& position) {
  position = EntryNumber(word);
  if (position >= 0) return 0;
  Why = String("'") + word + "' is not an entry number (1 is the first entry)";
  return 30;
}

int tCommandRun::Show(char**) {
  ShowSet(*Current, Out);
  return 0;
}

int tCommandRun::ShowClause(char** words) {
  tClauseData* record;
  if (Clause(words[0], record) != 0) return 30;
  for (const tClauseData* first : Walk<const tClauseData>(*Current))
    if (first == record || first->Partner == record) ::ShowClause(*first, Out);
  return 0;
}

int tCommandRun::Sets(char**) {
  for (DListtClauseData* set : Walk<DListtClauseData>(Model.Document.DataSets))
    std::fprintf(Out, "%s\n", set->Name(nullptr).Text());
  return 0;
}

int tCommandRun::In(char** words) {
  DListtClauseData* set = FindSet(Model.Document, words[0], Why);
  if (!set) return 30;
  Current = set;
  return 0;
}

int tCommandRun::On(char** words) { return Switch(words, 1); }
int tCommandRun::Off(char** words) { return Switch(words, 0); }

int tCommandRun::Switch(char** words, int on) {
  tClauseData* record;
  if (Clause(words[0], record) != 0) return 30;
  int variant = FindVariant(*record, words[1], Why);
  if (variant < 0) return 30;
  return Refused(Model.SetVariant(*record, variant, on, Why));
}

int tCommandRun::Add(char** words) {
  tClauseData* record;
  int list;
  if (ClauseList(words, record, list) != 0) return 30;
  return Refused(Model.InsertEntries(*record, list, ListOf(*record, list).Size(), words[2], Why));
}

int tCommandRun::Insert(char** words) {
  tClauseData* record;
  int list, position;
  if (ClauseList(words, record, list) != 0 || Position(words[2], position) != 0) return 30;
  return Refused(Model.InsertEntries(*record, list, position, words[3], Why));
}

int tCommandRun::Change(char** words) {
  tClauseData* record;
  int list, position;
  if (ClauseList(words, record, list) != 0 || Position(words[2], position) != 0) return 30;
  return Refused(Model.ChangeEntry(*record, list, position, words[3], Why));
}

// Every entry equal to the one given, from the last, so that positions of
// those still to go stay put.
int tCommandRun::Remove(char** words) {
  tClauseData* record;
  int list;
  if (ClauseList(words, record, list) != 0) return 30;
  DListtString& values = ListOf(*record, list);
  int removed = 0;
  for (int i = values.Size() - 1; i >= 0; --i) {
    if (std::strcmp(values[i]->Text(), words[2]) != 0) continue;
    if (Model.RemoveEntry(*record, list, i, Why) < 0) return 31;
    ++removed;
  }
  if (removed > 0) return 0;
  Why = String("list '") + CaptionOf(*record, list) + "' holds no entry '" + words[2] + "'";
  return 31;
}

int tCommandRun::RemoveAt(char** words) {
  tClauseData* record;
  int list, position;
  if (ClauseList(words, record, list) != 0 || Position(words[2], position) != 0) return 30;
  return Refused(Model.RemoveEntry(*record, list, position, Why));
}

int tCommandRun::Move(char** words) {
  tClauseData* record;
  int list, from, to;
  if (ClauseList(words, record, list) != 0 || Position(words[2], from) != 0 ||
      Position(words[3], to) != 0)
    return 30;
  return Refused(Model.MoveEntry(*record, list, from, to, Why));
}

int tCommandRun::Clear(char** words) {
  tClauseData* record;
  int list;
  if (ClauseList(words, record, list) != 0) return 30;
  for (int i = ListOf(*record, list).Size() - 1; i >= 0; --i)
    if (Model.RemoveEntry(*record, list, i, Why) < 0) return 31;
  return 0;
}

int tCommandRun::NewSet(char** words) {
  if (Model.AddSet(words[0], Why) < 0) return 31;
  Current = Model.Set(words[0]);
  return 0;
}

int tCommandRun::RenameSet(char** words) {
  DListtClauseData* set = FindSet(Model.Document, words[0], Why);
  if (!set) return 30;
  return Refused(Model.RenameSet(*set, words[1], Why));
}

int tCommandRun::RemoveSet(char** words) {
  DListtClauseData* set = FindSet(Model.Document, words[0], Why);
  if (!set) return 30;
  if (Model.RemoveSet(*set, Why) < 0) return 31;
  if (set == Current) Current = static_cast<DListtClauseData*>(Model.Document.DataSets[0]);
  return 0;
}
