#ifndef RULEFORGE_APP_FILTERD_H
#define RULEFORGE_APP_FILTERD_H

#include "output/output.h"
#include "rules/clauslst.h"
#include "text/dliststr.h"
#include "text/str.h"

// The one document of a run: the filter template (title, substitutions, the
// two rule sections and the label priority) and the user's data sets. Building
// it reads the template; the stages of a run are its member functions, each
// reporting through Error and Warning. Owns everything it holds.
class tFilterData : public tObject {
 public:
  DListOfDListtClauseData DataSets;
  DListtClauseTemplate MainRules;
  DListtClauseTemplate LabelRules;
  int FirstLabel;
  int ResolveNames;
  String TemplateTitle;
  DListtString SubstitutionNames;
  DListtString SubstitutionValues;

  // A null templateName reads "mkrule.tpl" from the working directory. Notes
  // receives what the template and data readers skip or read otherwise than
  // written; it must outlive the document.
  tFilterData(const char* templateName, int resolve, tReadNotes& notes = tReadNotes::Silent());
  ~tFilterData() override;

  int ReadTemplate(const char* fileName);
  int WriteTemplate(const char* fileName) const;
  // shownName, when given, names the input in messages instead of fileName
  // (standard input when null).
  int ReadData(const char* fileName, const char* shownName = nullptr);
  // Writes the whole output to out, named shownName in messages (empty for
  // standard output). The resolver exists while it runs when names are
  // resolved. Returns 0, or a negative value after error 8 or a stop.
  int WriteData(FILE* out = stdout, const char* shownName = "");
  // What the output takes from the template besides the data sets.
  tOutputFrame OutputFrame() const;
  int New();

 private:
  tReadNotes& Notes;
  void ReadSections(tFilterTemplateFile& file);
  void ReadSubstitutions(tFilterTemplateFile& file);
  void ReadLabelRules(tFilterTemplateFile& file);
};

#endif
