#ifndef RULEFORGE_UPDATE_UPDNOTES_H
#define RULEFORGE_UPDATE_UPDNOTES_H

#include "check/checknotes.h"
#include "parse/notes.h"

// The receiver of the readers' notes for an update: hands them to
// ruleforge-check's receiver, which makes its findings of them, and counts the
// findings made while a data file is read, which a save would make permanent.
// A writer or template other than the file names, and a clause unknown to the
// template, are left to the messages of ruleforge (warnings 1 and 2, error
// 6). Refers to the check's receiver and findings; owns neither.
class tUpdateNotes : public tReadNotes {
 public:
  tUpdateNotes(tCheckNotes& check, tFindings& findings);

  // Starts a data file; its findings are counted from here.
  void BeginData();
  // The findings about the data of the file begun last.
  int DataFindings() const { return Findings.Total - AtBegin; }

  void Note(int line, tNote what, const String& detail) override;
  void Placed(const void* element, int line) override;

 private:
  tCheckNotes& Check;
  tFindings& Findings;
  int AtBegin;
};

#endif
