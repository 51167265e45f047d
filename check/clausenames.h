#ifndef RULEFORGE_CHECK_CLAUSENAMES_H
#define RULEFORGE_CHECK_CLAUSENAMES_H

#include <string_view>
#include <unordered_map>

#include "rules/clauslst.h"
#include "text/str.h"

// The template's clauses by name, to tell why a clause named in data is
// unknown: a fixed clause, one of the other section, a companion, or no
// clause at all. Refers to the clauses and their names; owns neither.
class tClauseNames {
 public:
  void Rules(DListtClauseTemplate* mainRules, DListtClauseTemplate* labelRules);
  // The first main clause, or else label clause, of that name; null when
  // there is none.
  const tClauseTemplate* Find(const String& name) const;
  // The finding for name, which a data set has no record for, read from the
  // data line line.
  String UnknownClause(const String& name, const String& line) const;

 private:
  // [0] the main rules, [1] the label rules; [][0] by the clause's own name,
  // [][1] by its companion's. The first clause of each name counts.
  std::unordered_map<std::string_view, tClauseTemplate*> ByName[2][2];

  // The clause of list (0 main, 1 label rules) named name, or whose companion
  // is named name; nullptr when there is none.
  tClauseTemplate* Named(int list, const String& name, int companions) const;
  // What an unknown name on line was probably meant as: a data set header,
  // or the line with a clause name in another letter case.
  String Meant(const String& name, const String& line) const;
};

#endif
