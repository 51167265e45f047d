#ifndef RULEFORGE_CHECK_CHECKNOTES_H
#define RULEFORGE_CHECK_CHECKNOTES_H

#include <unordered_map>
#include <utility>
#include <vector>

#include "check/clausenames.h"
#include "check/datalines.h"
#include "check/findings.h"
#include "parse/notes.h"
#include "rules/clauslst.h"
#include "text/str.h"

// The receiver of the readers' notes for ruleforge-check: turns each note into
// a finding (check/notetexts.h) and remembers where each element of the
// template and data was read from, for the checks that look at what was read.
// Refers to the findings and, once the template is read, to its two rule
// lists; owns neither.
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
  // Where the seven strings of a clause ran onto later lines: the string
  // line and how many strings it held; line 0 when they stood on one line.
  std::pair<int, String> ShortStringLine(const void* clause) const;

  // The shape of the current data file's section.
  const tDataLines& Section() const { return Lines; }
  // The lines skipped after a clause's list lines that were a clause's head
  // line or a damaged marker: where an end line was missing or damaged.
  const std::vector<int>& EndsLost() const { return LostEnds; }

  void Note(int line, tNote what, const String& detail) override;
  void Placed(const void* element, int line) override;

 private:
  tFindings& Findings;
  tClauseNames Names;
  // Where each element was read from, by its address: the template's, kept
  // through every data file, and the current data file's. Sorted by address
  // on the first look-up after a change; of two places of one element (a data
  // set read twice) the later counts.
  typedef std::vector<std::pair<const void*, int>> tPlaces;
  mutable tPlaces TemplatePlaces;
  mutable tPlaces DataPlaces;
  mutable bool Sorted;
  // The lines of each text and the clauses with a string line cut short, by
  // address, and the element placed last, which such notes belong to.
  std::unordered_map<const void*, std::vector<int>> TextLines;
  std::unordered_map<const void*, std::pair<int, String>> ShortStrings;
  const void* LastPlaced;
  // The line it was placed at: in the data, a clause's head line.
  int LastPlacedLine;
  bool InData;
  // Where the data input stands: before its first data line, in the
  // parseable section, or below the section's end line.
  enum { BeforeSection, InSection, BelowSection } Where;
  // The last data lines delivered, the latest last, for the hints that
  // rewrite them (the reader has fetched up to two lines past a noted one).
  static const int kRecent = 3;
  int RecentLine[kRecent];
  String RecentText[kRecent];
  // The line that a head line without states took its states from.
  int StatesTaken;
  tDataLines Lines;
  std::vector<int> LostEnds;
  // Whether the lines skipped since the last line that begins with "~~~"
  // follow a lost end line; they are its effect, not findings of their own.
  bool Swallowing;

  void DataLine(int line, tNote what, const String& text);
  // Takes in a note that makes no finding by itself (a line delivered, a
  // text line, a string line cut short) or whose finding is an effect of an
  // earlier one; true when no finding is to be made of it.
  bool Taken(int line, tNote what, const String& detail);
};

#endif
