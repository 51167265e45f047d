#ifndef RULEFORGE_CHECK_CHECKNOTES_H
#define RULEFORGE_CHECK_CHECKNOTES_H

#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "check/findings.h"
#include "parse/notes.h"
#include "rules/clauslst.h"
#include "text/str.h"

// The receiver of the readers' notes for ruleforge-check: turns each note into
// a finding that says what the reader did and what was probably meant, and
// remembers the line each element of the template and data was read from, for
// the checks that look at what was read. Refers to the findings and, once the
// template is read, to its two rule lists; owns neither.
class tCheckNotes : public tReadNotes {
 public:
  explicit tCheckNotes(tFindings& findings);

  // The template's rule lists, to tell why a clause named in data is unknown.
  void Rules(DListtClauseTemplate* mainRules, DListtClauseTemplate* labelRules);
  // Starts a data file: its lines and elements are new.
  void BeginData();
  // The line an element was read from; 0 when it was not noted.
  int LineOf(const void* element) const;
  // The physical line of each line of a template text, in order; empty when
  // none was noted.
  const std::vector<int>& LinesOfText(const void* text) const;

  void Note(int line, tNote what, const String& detail) override;
  void Placed(const void* element, int line) override;

 private:
  tFindings& Findings;
  // The template's clauses by name, the first of each name: [0] the main
  // rules, [1] the label rules; [][0] by the clause's own name, [][1] by its
  // companion's. The names are the clauses' own texts.
  std::unordered_map<std::string_view, tClauseTemplate*> ByName[2][2];
  // Where each element was read from, by its address: the template's, kept
  // through every data file, and the current data file's. Sorted by address
  // on the first look-up after a change; of two places of one element (a data
  // set read twice) the later counts.
  typedef std::vector<std::pair<const void*, int>> tPlaces;
  mutable tPlaces TemplatePlaces;
  mutable tPlaces DataPlaces;
  mutable bool Sorted;
  // The lines of each text, by its address, and the element placed last,
  // which the text lines that follow belong to.
  std::unordered_map<const void*, std::vector<int>> TextLines;
  const void* LastPlaced;
  bool InData;
  // Where the data input stands: before its first data line, in the
  // parseable section, or below the section's end line.
  enum { BeforeSection, InSection, BelowSection } Where;

  void DataLine(int line, tNote what, const String& text);
  String UnknownClause(const String& name);
  // The clause of list (0 main, 1 label rules) named name, or whose companion
  // is named name; nullptr when there is none.
  tClauseTemplate* Named(int list, const String& name, int companions) const;
};

#endif
