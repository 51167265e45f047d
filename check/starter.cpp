#include "check/starter.h"

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

// Every labelled variant off, each state placed by its variant's index as the
// writer places it.
String States(const tClauseTemplate& clause) {
  String states;
  for (int i = 0; i < 4; ++i)
    if (clause.VariantLabels[i].Length() > 0) states += i == 0 ? "0" : ", 0";
  return states;
}

void WriteClause(FILE* out, const char* prefix, const tClauseTemplate& clause) {
  std::fprintf(out, "%s## %s\n", prefix, Description(clause).Text());
  std::fprintf(out, "%s### \"%s\", %s\n", prefix, clause.Name.Text(), States(clause).Text());
  if (clause.Partner) {
    std::fprintf(out, "%s###~~\n", prefix);
    std::fprintf(out, "%s## companion %s\n", prefix, Description(*clause.Partner).Text());
    std::fprintf(out, "%s### %s\n", prefix, States(*clause.Partner).Text());
  }
  std::fprintf(out, "%s###~~~\n", prefix);
}

}  // namespace

void WriteStarter(tFilterData& document, FILE* out) {
  WriteSectionHead(out, document.TemplateTitle.Text());
  std::fputs("###~~~~(Main)\n", out);
  for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(document.MainRules))
    if (!(clause->Flags & tClauseTemplate::FixedClause)) WriteClause(out, "", *clause);
  if (document.LabelRules.Size() > 0) {
    std::fputs(
        "## To add a label data set, copy the lines from ###~~~~NAME on without their\n"
        "## first \"## \" and write the label in place of NAME.\n"
        "## ###~~~~NAME\n",
        out);
    for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(document.LabelRules))
      if (!(clause->Flags & tClauseTemplate::FixedClause)) WriteClause(out, "## ", *clause);
  }
  std::fputs(ParseableSectionEnd, out);
}
