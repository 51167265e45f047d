#ifndef RULEFORGE_CHECK_DATALINES_H
#define RULEFORGE_CHECK_DATALINES_H

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/clausenames.h"
#include "text/str.h"

// The shape of a data file's section as its lines were delivered, for telling
// a missing or damaged end line from the symptoms it causes: which lines are
// data, which begin with "~~~" (end a clause), which are a clause's
// head line, and which are an end or companion line written with blanks.
// Holds line numbers only.
class tDataLines {
 public:
  void Clear();
  // A line of the section, as delivered (with its "###").
  void Add(int line, const String& text, const tClauseNames& names);
  // The line is a clause's head line, or a marker written with blanks.
  int Misplaced(int line) const { return Heads.count(line) || Damaged.count(line); }
  // The marker a damaged line was meant as; "" for any other line.
  String Meant(int line) const;
  // The last data line that a clause whose lines lost their end at line takes
  // as its own, with the clause after it misread in turn: the one before the
  // next line that begins with "~~~" (line itself when it begins so).
  int SwallowedUpTo(int line) const;
  // The damaged markers, in line order.
  std::vector<int> DamagedLines() const;

 private:
  std::vector<int> Lines;
  std::vector<int> Tildes;
  std::unordered_set<int> Heads;
  std::unordered_map<int, String> Damaged;
};

// The marker that a data line written with blanks was meant as ("###~~~" for
// "### ~~~"), or "" when it is none.
String MeantMarker(const String& text);

#endif
