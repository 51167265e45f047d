#include "check/clausenames.h"

#include <strings.h>
#include <string>

#include "check/findings.h"
#include "text/dlist.h"

void tClauseNames::Rules(DListtClauseTemplate* mainRules, DListtClauseTemplate* labelRules) {
  DListtClauseTemplate* lists[] = {mainRules, labelRules};
  for (int list = 0; list < 2; ++list) {
    for (auto& names : ByName[list]) names.clear();
    if (!lists[list]) continue;
    for (tClauseTemplate* clause : Walk<tClauseTemplate>(*lists[list])) {
      ByName[list][0].emplace(std::string_view(clause->Name.Text(), clause->Name.Length()), clause);
      if (const tClauseTemplate* companion = clause->Partner)
        ByName[list][1].emplace(std::string_view(companion->Name.Text(), companion->Name.Length()),
                                clause);
    }
  }
}

tClauseTemplate* tClauseNames::Named(int list, const String& name, int companions) const {
  const auto& names = ByName[list][companions];
  auto found = names.find(std::string_view(name.Text(), name.Length()));
  return found == names.end() ? nullptr : found->second;
}

const tClauseTemplate* tClauseNames::Find(const String& name) const {
  const tClauseTemplate* main = Named(0, name, 0);
  return main ? main : Named(1, name, 0);
}

String tClauseNames::UnknownClause(const String& name, const String& line) const {
  String quoted = Quoted(name);
  tClauseTemplate* main = Named(0, name, 0);
  tClauseTemplate* label = main ? nullptr : Named(1, name, 0);
  tClauseTemplate* clause = main ? main : label;
  if (clause && (clause->Flags & tClauseTemplate::FixedClause))
    return "clause " + quoted +
           " is fixed (it has no variants) and takes no data: ruleforge "
           "stops with error 6 and writes nothing (remove its lines)";
  if (main)
    return "clause " + quoted +
           " belongs to the \"Main Rules\": in a label data set ruleforge "
           "stops with error 6 and writes nothing (move it under "
           "\"###~~~~(Main)\")";
  if (label)
    return "clause " + quoted +
           " belongs to the \"Label Rules\": outside a label data set "
           "ruleforge stops with error 6 and writes nothing (move it under a "
           "\"###~~~~NAME\" line)";
  tClauseTemplate* owner = Named(0, name, 1);
  if (!owner) owner = Named(1, name, 1);
  if (owner)
    return quoted + " is the companion of clause " + Quoted(owner->Name) +
           ": named as a clause, ruleforge stops with error 6 and writes nothing (write its "
           "lines after \"###~~\" in that clause)";
  return "unknown clause " + quoted + ": ruleforge stops with error 6 and writes nothing (" +
         Meant(name, line) + ")";
}

String tClauseNames::Meant(const String& name, const String& line) const {
  // "###~~~gw3" and "### ~~~~gw3" are data set headers the reader missed.
  int rest = name.AtFirstNotIn("~");
  if (name.Text()[0] == '~' && rest > 0)
    return "write a data set header as " + Quoted("###~~~~" + name.Copy(rest));
  // Of the clauses whose names differ in letter case only, the first in
  // byte order, so that the hint does not depend on the order of the table.
  std::string_view meant;
  for (const auto& list : ByName) {
    for (const auto& named : list[0]) {
      if (named.first.size() != static_cast<size_t>(name.Length())) continue;
      if (strncasecmp(named.first.data(), name.Text(), named.first.size()) != 0) continue;
      if (meant.empty() || named.first < meant) meant = named.first;
    }
  }
  std::string written = line.Text();
  size_t at = written.find(name.Text());
  if (!meant.empty() && at != std::string::npos)
    return "write " + Quoted(written.replace(at, meant.size(), meant).c_str());
  return "check the name against the template";
}
