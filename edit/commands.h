#ifndef RULEFORGE_EDIT_COMMANDS_H
#define RULEFORGE_EDIT_COMMANDS_H

#include <cstdio>

#include "edit/model.h"
#include "text/str.h"

// The command face of ruleforge-edit: runs the words of a command line as
// edits of the model, in order. Every command takes a fixed number of words,
// so entries and names need no marks around them; the commands apply to the
// data set "(Main)" until "in" or "new-set" names another. Refers to the model
// and the stream show prints to; owns neither.
class tCommandRun {
 public:
  tCommandRun(tEditModel& model, FILE* out);
  // 0 when every command was done; otherwise the status of the first that
  // failed (30: a word names nothing, 31: an edit refused), reported with
  // Error. Commands after a failed one are not run.
  int Run(int count, char** words);

 private:
  struct tCommand;
  static const tCommand Commands[];

  tEditModel& Model;
  FILE* Out;
  DListtClauseData* Current;
  String Why;

  // The parts of a command's words, found by name; each returns 0 or 30.
  int Clause(const char* name, tClauseData*& record);
  int ClauseList(char** words, tClauseData*& record, int& list);
  int Position(const char* word, int& position);
  int Refused(int result) { return result < 0 ? 31 : 0; }

  int Show(char** words);
  int ShowClause(char** words);
  int Sets(char** words);
  int In(char** words);
  int On(char** words);
  int Off(char** words);
  int Switch(char** words, int on);
  int Add(char** words);
  int Insert(char** words);
  int Change(char** words);
  int Remove(char** words);
  int RemoveAt(char** words);
  int Move(char** words);
  int Clear(char** words);
  int NewSet(char** words);
  int RenameSet(char** words);
  int RemoveSet(char** words);
};

#endif
