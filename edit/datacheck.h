#ifndef RULEFORGE_EDIT_DATACHECK_H
#define RULEFORGE_EDIT_DATACHECK_H

#include <memory>
#include <string>
#include <vector>

#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"

// One finding about the data, placed at the list it concerns: data set,
// record and part (0 the clause, 1 its companion) by position, list 0 or 1;
// List is -1 for a finding about the record or data set as a whole.
struct tDataFinding {
  int Set;
  int Record;
  int Part;
  int List;
  std::string Text;
};

// The findings ruleforge-check reports for the editor's data as it stands:
// the data is written as it would be saved and read back by a second document
// of the same template with the checker's receiver of notes, and the
// checker's data checks run on it. Owns the second document.
class tDataCheck {
 public:
  // resolve: whether the entries go to name lookup, which the checker's
  // look-up findings are about.
  tDataCheck(const char* templateName, int resolve);
  ~tDataCheck();

  // Recomputes Items for the document's data.
  void Run(tFilterData& document);
  std::vector<tDataFinding> Items;

 private:
  tFindings Findings;
  tCheckNotes Notes;
  std::unique_ptr<tFilterData> Checker;
  int Resolve;

  void Place(int line, const std::string& text);
};

#endif
