#include "edit/preview.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "output/fill.h"
#include "output/pairfill.h"
#include "output/substit.h"
#include "rules/textsink.h"

namespace {

void CopyPart(const tClauseData& from, tClauseData& to) {
  to.Template = from.Template;
  for (int i = 0; i < 4; ++i) to.VariantStates[i] = from.VariantStates[i];
  for (const tString* entry : Walk<const tString>(from.Values0))
    to.Values0.ToTail(new tString(*entry));
  for (const tString* entry : Walk<const tString>(from.Values1))
    to.Values1.ToTail(new tString(*entry));
}

// The texts of one record made at once, with their priorities, in the order
// of generation; the label name, when there is one, fills ${L}.
class tPreviewSink : public tTextSink {
 public:
  explicit tPreviewSink(const String* label) : Label(label) {}

  void Single(const tPrioritizedString& text) override { Add(text, tPlaceFill()); }
  void Values(tRecordValues& values) override {
    for (int i = 0; i < 2; ++i) {
      Place.Values[i] = values.Values[i];
      Place.First[i] = static_cast<int>(Resolved.size());
      Place.Count[i] = static_cast<int>(values.Resolved[i].size());
      Resolved.insert(Resolved.end(), values.Resolved[i].begin(), values.Resolved[i].end());
    }
  }
  void Pairs(const tPrioritizedString& text, int end0, int end1) override {
    tPairFill pairs(Place, Resolved, end0, end1);
    tPlaceFill fill;
    while (pairs.Next(fill)) Add(text, fill);
  }

  std::vector<std::pair<int, String>> Texts;

 private:
  const String* Label;
  tPlaceValues Place;
  std::deque<String> Resolved;

  void Add(const tPrioritizedString& text, tPlaceFill fill) {
    fill.With[tPlaceFill::Label] = Label;
    Texts.emplace_back(text.Priority, FillStepByStep(text, fill));
  }
};

const String* LabelOf(tFilterData& document, DListtClauseData& set) {
  return &set != document.DataSets[0] ? &set.Name(nullptr) : nullptr;
}

// The sink's texts in priority order, ties in the order made (as the output
// orders them), with the substitutions applied, line by line.
std::vector<std::string> Lines(tFilterData& document, tPreviewSink& sink) {
  std::stable_sort(sink.Texts.begin(), sink.Texts.end(),
                   [](const std::pair<int, String>& a, const std::pair<int, String>& b) {
                     return a.first < b.first;
                   });
  tSubstitutions substitutions(document.SubstitutionNames, document.SubstitutionValues);
  std::vector<std::string> lines;
  for (auto& made : sink.Texts) {
    String& text = made.second;
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
  tPreviewSink sink(LabelOf(document, set));
  copy.WriteFilter(sink);
  return Lines(document, sink);
}

std::vector<std::string> FixedPreviewLines(tFilterData& document, DListtClauseData& set,
                                           const tClauseTemplate& clause) {
  tPreviewSink sink(LabelOf(document, set));
  for (const DListtPrioritizedString& singles : clause.SingleTexts)
    for (const tPrioritizedString* single : Walk<const tPrioritizedString>(singles))
      sink.Single(*single);
  return Lines(document, sink);
}
