#include "check/starter.h"

#include <string_view>
#include <unordered_set>
#include <vector>

#include "check/hints.h"
#include "output/section.h"
#include "text/dlist.h"

namespace {

// What the user fills in: the labelled variants and the captioned lists.
String Description(const tClauseTemplate& clause) {
  String text = "\"" + clause.Name + "\":";
  String variants;
  for (const String& label : clause.VariantLabels) {
    if (label.Length() == 0) continue;
    variants += variants.Length() > 0 ? ", \"" : " \"";
    variants += label + "\"";
  }
  if (variants.Length() > 0) text += " variants" + variants + " (0 off, 1 on, in this order);";
  if (clause.Value0Label.Length() > 0) text += " first list \"" + clause.Value0Label + "\";";
  if (clause.Value1Label.Length() > 0) text += " second list \"" + clause.Value1Label + "\";";
  text.Cut(text.Length() - 1);
  return text;
}

void WriteClause(FILE* out, const char* prefix, const tClauseTemplate& clause) {
  std::fprintf(out, "%s## %s\n", prefix, Description(clause).Text());
  std::fprintf(out, "%s### \"%s\", %s\n", prefix, clause.Name.Text(), OffStates(clause).Text());
  if (clause.Partner) {
    std::fprintf(out, "%s###~~\n", prefix);
    std::fprintf(out, "%s## companion %s\n", prefix, Description(*clause.Partner).Text());
    std::fprintf(out, "%s### %s\n", prefix, OffStates(*clause.Partner).Text());
  }
  std::fprintf(out, "%s###~~~\n", prefix);
}

// The clauses of a section that take data and that a data line can name, in
// order; the others that take data are left out with a finding.
std::vector<const tClauseTemplate*> Nameable(DListtClauseTemplate& rules, const tCheckNotes& notes,
                                             tFindings& findings) {
  std::vector<const tClauseTemplate*> nameable;
  std::unordered_set<std::string_view> names;
  for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(rules)) {
    if (clause->Flags & tClauseTemplate::FixedClause) continue;
    int line = notes.LineOf(clause);
    if (!names.emplace(clause->Name.Text(), clause->Name.Length()).second) {
      findings.Add(line, "clause " + Quoted(clause->Name) +
                             " is left out of the starting file: its name is taken by a clause "
                             "above it, which all data of that name reaches");
    } else if (!CanBeNamed(clause->Name)) {
      findings.Add(line, "clause " + Quoted(clause->Name) +
                             " is left out of the starting file: no data line can name it");
    } else {
      nameable.push_back(clause);
    }
  }
  return nameable;
}

}  // namespace

void WriteStarter(tFilterData& document, const tCheckNotes& notes, tFindings& findings, FILE* out) {
  WriteSectionHead(out, document.TemplateTitle.Text());
  std::fputs("###~~~~(Main)\n", out);
  for (const tClauseTemplate* clause : Nameable(document.MainRules, notes, findings))
    WriteClause(out, "", *clause);
  if (document.LabelRules.Size() > 0) {
    std::fputs(
        "## To add a label data set, copy the lines from ###~~~~NAME on without their\n"
        "## first \"## \" and write the label in place of NAME.\n"
        "## ###~~~~NAME\n",
        out);
    for (const tClauseTemplate* clause : Nameable(document.LabelRules, notes, findings))
      WriteClause(out, "## ", *clause);
  }
  std::fputs(ParseableSectionEnd, out);
}
