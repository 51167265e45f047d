#include "edit/preview.h"

#include "rules/substit.h"

namespace {

void CopyPart(const tClauseData& from, tClauseData& to) {
  to.Template = from.Template;
  for (int i = 0; i < 4; ++i) to.VariantStates[i] = from.VariantStates[i];
  for (const tString* entry : Walk<const tString>(from.Values0))
    to.Values0.ToTail(new tString(*entry));
  for (const tString* entry : Walk<const tString>(from.Values1))
    to.Values1.ToTail(new tString(*entry));
}

}  // namespace

std::vector<std::string> PreviewLines(tFilterData& document, DListtClauseData& set,
                                      const tClauseData& first) {
  tClauseData copy;
  CopyPart(first, copy);
  if (first.Partner) {
    tClauseData* companion = new tClauseData;
    CopyPart(*first.Partner, *companion);
    copy.AdoptCompanion(companion);
  }
  DListtPrioritizedString texts;
  copy.WriteFilter(texts);
  int label = &set != document.DataSets[0];
  tSubstitutions substitutions(document.SubstitutionNames, document.SubstitutionValues);
  std::vector<std::string> lines;
  for (const tPrioritizedString* generated : Walk<const tPrioritizedString>(texts)) {
    String text(*generated);
    if (label) text.ReplaceAll("${L}", set.Name(nullptr).Text());
    substitutions.Apply(text);
    std::string all(text.Text());
    for (size_t start = 0; start < all.size();) {
      size_t end = all.find('\n', start);
      if (end == std::string::npos) end = all.size();
      lines.push_back(all.substr(start, end - start));
      start = end + 1;
    }
  }
  return lines;
}
