#ifndef RULEFORGE_RULES_CLAUSLST_H
#define RULEFORGE_RULES_CLAUSLST_H

#include <cstdio>
#include <string>
#include <unordered_map>

#include "parse/parsefil.h"
#include "rules/clause.h"
#include "rules/progress.h"
#include "rules/textsink.h"
#include "text/dlist.h"
#include "text/dliststr.h"
#include "text/str.h"

// "~~~" closes a clause; "~~~~" opens a section of a template file or a data
// set of the parseable section.
extern const String ClauseSeparator;
extern const String SectionSeparator;

// 1 when the unread rest of the current line begins with SectionSeparator.
int AtSectionSeparator(tParseableFile& file);

// The clause templates of one section of a template file, in file order. Holds
// main templates only and owns them: clearing or destroying the list deletes
// each, and each its companion. In rules/clauslst.cpp.
class DListtClauseTemplate : public DList {
 public:
  tClauseTemplate* Current() const;
  int Read(tFilterTemplateFile& file);
  int Write(FILE* stream) const;
  ~DListtClauseTemplate() override;
};

// One data set: a clause record for every clause template of its section that
// is not fixed, in template order. Itself an element of the list of data sets.
// Owns its records: clearing or destroying the set deletes each first record,
// and each first record its companion record. The template list is not owned.
// Reading and the parseable lines in rules/clauslst.cpp, the expansion in
// rules/setexp.cpp.
class DListtClauseData : public DList, public tObject {
 public:
  DListtClauseData();
  DListtClauseData(const char* name, DListtClauseTemplate* templates);
  ~DListtClauseData() override;

  DListtClauseTemplate* Templates;

  int New();
  String& Name(const char* newName);
  tClauseData* Current() const;
  int Read(tFilterDataFile& in);
  int WriteParseable(FILE* out);
  // Hands out the generated texts of the set, fixed clauses first, in the
  // order of generation, reporting each record to progress with a percentage
  // from from to to; a negative answer of progress ends it and is returned.
  int WriteFilter(tTextSink& out, tProgress& progress, int from, int to);

 private:
  String SetName;
  // The first record of each clause name: the same record a walk from the head
  // would find. Rebuilt on the first search after any change of the list, which
  // ByNameChanges tells from the list's change counter.
  std::unordered_map<std::string, tClauseData*> ByName;
  unsigned long ByNameChanges;
  tClauseData* Find(const String& clauseName);
};

// Every data set of the document: "(Main)" first, then one per label in the
// order the labels first occur. Owns the data sets. The output stage (output/)
// writes them.
class DListOfDListtClauseData : public DList {
 public:
  ~DListOfDListtClauseData() override;

  int New(DListtClauseTemplate* mainTemplates);
  DListtClauseData* Current() const;
  // 0 when read; -1 when the input cannot be opened, -2 when it holds no
  // parseable section, -3 when a read of it failed. Warnings 1 and 2 and
  // error 6 are reported, and noted to notes as well.
  int Read(const char* fileName, const char* templateTitle, DListtClauseTemplate& mainTemplates,
           DListtClauseTemplate& labelTemplates, tReadNotes& notes = tReadNotes::Silent());
};

#endif
