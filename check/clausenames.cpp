#include "check/clausenames.h"

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

String tClauseNames::UnknownClause(const String& name) const {
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
  return "unknown clause " + quoted +
         ": ruleforge stops with error 6 and writes nothing "
         "(check the name against the template)";
}
