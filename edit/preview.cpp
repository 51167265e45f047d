#include "edit/preview.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "edit/model.h"
#include "output/fill.h"
#include "output/pairfill.h"
#include "output/substit.h"
#include "rules/textsink.h"

namespace {

// The first pairs of entries, j outer, use only the first entries of each
// list: a copy of MaxLines entries a list makes the same first MaxLines texts
// of every value text as the whole lists do.
void CopyList(const DListtString& from, DListtString& to) {
  int left = tPreview::MaxLines;
  for (const tString* entry : Walk<const tString>(from)) {
    if (left-- == 0) break;
    to.ToTail(new tString(*entry));
  }
}

void CopyPart(const tClauseData& from, tClauseData& to) {
  to.Template = from.Template;
  for (int i = 0; i < 4; ++i) to.VariantStates[i] = from.VariantStates[i];
  CopyList(from.Values0, to.Values0);
  CopyList(from.Values1, to.Values1);
}

// The texts of one record made at once, with their priorities, in the order
// of generation; the label name, when there is one, fills ${L}.
class tPreviewSink : public tTextSink {
 public:
  // label fills ${L}; sizes are the entry counts of the lists copied, by
  // the copy's list, so that the lines left out are counted in full.
  tPreviewSink(const String* label, std::vector<std::pair<const DListtString*, int>> sizes)
      : Label(label), Sizes(std::move(sizes)) {}

  void Single(const tPrioritizedString& text) override { Add(text, tPlaceFill()); }
  void Values(const DListtString& values0, const DListtString& values1) override {
    const DListtString* lists[2] = {&values0, &values1};
    for (int i = 0; i < 2; ++i) {
      Place.Values[i] = lists[i];
      Full[i] = lists[i]->Size();
      for (const auto& size : Sizes)
        if (size.first == lists[i] && Full[i] == tPreview::MaxLines) Full[i] = size.second;
      Place.First[i] = static_cast<int>(Forms.size());
      Place.Count[i] = 0;
    }
  }
  // The first place's forms come before the second's.
  void Resolved(int place, const String& form) override {
    if (Place.Count[place] == 0) Place.First[place] = static_cast<int>(Forms.size());
    Forms.push_back(form);
    ++Place.Count[place];
  }
  void Pairs(const tPrioritizedString& text, int end0, int end1) override {
    tPairFill pairs(Place, Forms, end0, end1);
    tPlaceFill fill;
    long long made = 0;
    while (made < tPreview::MaxLines && pairs.Next(fill)) {
      Add(text, fill);
      ++made;
    }
    long long lines = 0;
    for (const char* c = text.Text(); *c; ++c) lines += *c == '\n';
    // A list cut short counts with its whole size where the text runs over it.
    long long total = static_cast<long long>(end0 == tPreview::MaxLines ? Full[0] : end0) *
                      (end1 == tPreview::MaxLines ? Full[1] : end1);
    More += (total - made) * lines;
  }

  std::vector<std::pair<int, String>> Texts;
  long long More = 0;

 private:
  const String* Label;
  std::vector<std::pair<const DListtString*, int>> Sizes;
  int Full[2] = {};
  tPlaceValues Place;
  std::deque<String> Forms;

  void Add(const tPrioritizedString& text, tPlaceFill fill) {
    fill.With[tPlaceFill::Label] = Label;
    Texts.emplace_back(text.Priority, FillStepByStep(text, fill));
  }
};

// Puts the typed entry into the copy as the model would put it into the
// record; an entry the model would refuse, or one past what the copy holds,
// leaves the copy as it is.
void ApplyTyped(tClauseData& copy, const tTypedEntry& typed) {
  tClauseData* part = typed.Part == 0 ? &copy : copy.Partner;
  if (!part) return;
  DListtString& values = ListOf(*part, typed.List);
  std::vector<String> entries;
  String why;
  if (TypedEntries(typed.Text.c_str(), entries, why) < 0) return;
  if (typed.Position < 0 || typed.Position > values.Size()) return;
  if (!typed.Insert) {
    if (typed.Position == values.Size()) return;
    values.Goto(typed.Position);
    delete values.GetCurrent();
  }
  LinkEntries(values, typed.Position, entries);
}

const String* LabelOf(tFilterData& document, DListtClauseData& set) {
  return &set != document.DataSets[0] ? &set.Name(nullptr) : nullptr;
}

// The sink's texts in priority order, ties in the order made (as the output
// orders them), with the substitutions applied, line by line.
tPreview Lines(tFilterData& document, tPreviewSink& sink) {
  std::stable_sort(sink.Texts.begin(), sink.Texts.end(),
                   [](const std::pair<int, String>& a, const std::pair<int, String>& b) {
                     return a.first < b.first;
                   });
  tSubstitutions substitutions(document.SubstitutionNames, document.SubstitutionValues);
  tPreview preview;
  preview.More = sink.More;
  std::vector<std::string>& lines = preview.Lines;
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
  return preview;
}

}  // namespace

tPreview PreviewLines(tFilterData& document, DListtClauseData& set, const tClauseData& first,
                      const tTypedEntry* typed) {
  tClauseData copy;
  CopyPart(first, copy);
  if (first.Partner) {
    tClauseData* companion = new tClauseData;
    CopyPart(*first.Partner, *companion);
    copy.AdoptCompanion(companion);
  }
  std::vector<std::pair<const DListtString*, int>> sizes = {{&copy.Values0, first.Values0.Size()},
                                                            {&copy.Values1, first.Values1.Size()}};
  if (first.Partner) {
    sizes.push_back({&copy.Partner->Values0, first.Partner->Values0.Size()});
    sizes.push_back({&copy.Partner->Values1, first.Partner->Values1.Size()});
  }
  if (typed) {
    // The typed entries change the whole list's size by as much as the copy's.
    std::vector<int> before;
    for (const auto& size : sizes) before.push_back(size.first->Size());
    ApplyTyped(copy, *typed);
    for (size_t i = 0; i < sizes.size(); ++i) sizes[i].second += sizes[i].first->Size() - before[i];
  }
  tPreviewSink sink(LabelOf(document, set), sizes);
  copy.WriteFilter(sink);
  return Lines(document, sink);
}

tPreview FixedPreviewLines(tFilterData& document, DListtClauseData& set,
                           const tClauseTemplate& clause) {
  tPreviewSink sink(LabelOf(document, set), {});
  for (const DListtPrioritizedString& singles : clause.SingleTexts)
    for (const tPrioritizedString* single : Walk<const tPrioritizedString>(singles))
      sink.Single(*single);
  return Lines(document, sink);
}
