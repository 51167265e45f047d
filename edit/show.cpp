#include "edit/show.h"

#include "edit/model.h"

namespace {

void ShowPart(const tClauseData& record, const char* indent, FILE* out) {
  int shown = 0;
  for (int i = 0; i < 4; ++i) {
    const String& label = record.Template->VariantLabels[i];
    if (label.Length() == 0) continue;
    std::fprintf(out, "%svariant %d '%s': %s\n", indent, ++shown, label.Text(),
                 record.Check(i) ? "on" : "off");
  }
  for (int list = 0; list < 2; ++list) {
    tClauseData& data = const_cast<tClauseData&>(record);
    String entries = ListOf(data, list).ToString(", ", 0);
    const String& caption = list == 0 ? record.Template->Value0Label : record.Template->Value1Label;
    std::fprintf(out, "%slist %d", indent, list + 1);
    if (caption.Length() > 0) std::fprintf(out, " '%s'", caption.Text());
    std::fprintf(out, ": %s\n", entries.Text());
  }
}

}  // namespace

void ShowClause(const tClauseData& first, FILE* out) {
  std::fprintf(out, "clause '%s'\n", first.Template->Name.Text());
  ShowPart(first, "  ", out);
  if (!first.Partner) return;
  std::fprintf(out, "  companion '%s'\n", first.Partner->Template->Name.Text());
  ShowPart(*first.Partner, "    ", out);
}

void ShowSet(DListtClauseData& set, FILE* out) {
  std::fprintf(out, "data set '%s'\n", set.Name(nullptr).Text());
  if (!set.Templates) return;
  DListWalk<const tClauseData> records(set);
  auto record = records.begin();
  for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(*set.Templates)) {
    if (clause->Flags & tClauseTemplate::FixedClause) {
      std::fprintf(out, "clause '%s': fixed\n", clause->Name.Text());
    } else if (record != records.end()) {
      ShowClause(**record, out);
      ++record;
    }
  }
}
