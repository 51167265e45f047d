#include "rules/clause.h"

#include <deque>
#include <string>
#include <unordered_map>
#include <utility>

#include "resolve/dnsresol.h"
#include "rules/textsink.h"

namespace {

// The form of each entry that goes into a resolved place: "*" alone means any
// address, other wildcards become zeros, and host names become addresses when
// resolution is on. Empty entries get no resolved form and are taken out of
// values as well, so entry n of resolved still belongs to entry n of values.
// The resolved forms are appended to resolved; equal ones share one text, as
// a long list of a few names would otherwise keep a copy per entry until the
// output is written. An entry equal to an earlier one takes that one's form
// without asking again: the resolver answers a name it has met from its cache,
// with no warning and no lookup, so the form and everything the resolver does
// are what asking again would give.
void Resolve(DListtString& values, std::deque<String>& resolved, int stripBlanks) {
  static const String anyAddress("0;0");
  std::unordered_map<std::string, String> shared;
  std::unordered_map<std::string, String> byEntry;
  values.GotoHead();
  while (tString* entry = values.Current()) {
    std::string key(entry->Text(), entry->Length());
    auto known = byEntry.find(key);
    if (known != byEntry.end()) {
      resolved.push_back(known->second);
      values.Next();
      continue;
    }
    String copy = stripBlanks ? entry->Strip(" \t\n\r") : String(*entry);
    if (copy.Length() == 0) {
      delete values.GetCurrent();
      continue;
    }
    if (copy == "*") {
      copy = anyAddress;
    } else {
      copy.ReplaceAll("*", "0");
      if (Resolver) copy = Resolver->Lookup(copy);
    }
    const String& form = shared.emplace(copy.Text(), copy).first->second;
    resolved.push_back(form);
    byEntry.emplace(std::move(key), form);
    values.Next();
  }
}

struct tPlaces {
  int Uses0R = 0;
  int Uses1R = 0;
};

tPlaces ScanResolvedPlaces(tClauseTemplate& clause, const int inEffect[4]) {
  tPlaces places;
  for (int i = 0; i < 4; ++i) {
    if (!inEffect[i]) continue;
    for (const tPrioritizedString* text : Walk<const tPrioritizedString>(clause.ValueTexts[i])) {
      if (text->At("${0R}") >= 0) places.Uses0R = 1;
      if (text->At("${1R}") >= 0) places.Uses1R = 1;
      if (places.Uses0R && places.Uses1R) return places;
    }
  }
  return places;
}

}  // namespace

int tClauseData::WriteFilter(DListtPrioritizedString& out) {
  tListSink sink(out);
  return WriteFilter(sink);
}

int tClauseData::WriteFilter(tTextSink& out) {
  Expand(out);
  if (Partner) Partner->Expand(out);
  return 0;
}

void tClauseData::Expand(tTextSink& out) {
  tClauseTemplate& clause = *Template;
  int inEffect[4];
  for (int i = 0; i < 4; ++i) {
    int labelled = clause.VariantLabels[i].Length() > 0;
    inEffect[i] = (i == 0 && !labelled) || (labelled && VariantStates[i] != 0);
  }
  tPlaces places = ScanResolvedPlaces(clause, inEffect);
  std::deque<String>& resolved = out.Resolved;
  tPlaceValues values;
  values.Values[0] = &Values0;
  values.Values[1] = &Values1;
  values.First[0] = static_cast<int>(resolved.size());
  if (places.Uses0R) Resolve(Values0, resolved, 0);
  values.First[1] = static_cast<int>(resolved.size());
  if (places.Uses1R) Resolve(Values1, resolved, 1);
  values.Count[0] = values.First[1] - values.First[0];
  values.Count[1] = static_cast<int>(resolved.size()) - values.First[1];

  for (int i = 0; i < 4; ++i) {
    if (!inEffect[i]) continue;
    for (const tPrioritizedString* single : Walk<const tPrioritizedString>(clause.SingleTexts[i]))
      out.Single(*single);

    for (const tPrioritizedString* text : Walk<const tPrioritizedString>(clause.ValueTexts[i])) {
      int mentions0 = text->At("${0") >= 0;
      int mentions1 = text->At("${1") >= 0;
      int n0 = Values0.Size();
      int n1 = Values1.Size();
      int end0 = mentions0 && n0 >= 1 ? n0 : 1;
      int end1 = mentions1 && n1 >= 1 ? n1 : 1;
      // A mentioned place whose list is empty although the template asks for
      // that list produces nothing.
      int skip0 = mentions0 && clause.Value0Label.Length() > 0 && n0 == 0;
      int skip1 = mentions1 && clause.Value1Label.Length() > 0 && n1 == 0;
      if (skip0 || skip1) continue;
      out.Pairs(*text, values, end0, end1);
    }
  }
}
