#include "rules/clause.h"

#include <string>
#include <unordered_map>
#include <utility>

#include "resolve/dnsresol.h"
#include "resolve/entry.h"
#include "rules/textsink.h"

namespace {

// The form of each entry that goes into a resolved place, appended to
// resolved. Empty entries get no resolved form and are taken out of values as
// well, so entry n of resolved still belongs to entry n of values. Equal forms
// share one text, as a long list of a few names would otherwise keep a copy
// per entry until the output is written. An entry equal to an earlier one
// takes that one's form without asking again: the resolver answers a name it
// has met from its cache, with no warning and no lookup, so the form and
// everything the resolver does are what asking again would give.
void Resolve(DListtString& values, std::vector<String>& resolved, int stripBlanks) {
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
    String form;
    tEntryForm kind = EntryToResolve(*entry, stripBlanks, form);
    if (kind == EntryNone) {
      delete values.GetCurrent();
      continue;
    }
    if (kind == EntryLookedUp && Resolver) form = Resolver->Lookup(form);
    const String& one = shared.emplace(form.Text(), form).first->second;
    resolved.push_back(one);
    byEntry.emplace(std::move(key), one);
    values.Next();
  }
}

}  // namespace

int tClauseData::InEffect(int variant) const {
  return (variant == 0 && Template->VariantLabels[0].Length() == 0) || Check(variant);
}

void tClauseData::ResolvedPlaces(int uses[2]) const {
  for (int i = 0; i < 4; ++i) {
    if (!InEffect(i)) continue;
    for (const tPrioritizedString* text : Walk<const tPrioritizedString>(Template->ValueTexts[i])) {
      uses[0] |= text->At("${0R}") >= 0;
      uses[1] |= text->At("${1R}") >= 0;
      if (uses[0] && uses[1]) return;
    }
  }
}

int tClauseData::WriteFilter(tTextSink& out) {
  Expand(out);
  if (Partner) Partner->Expand(out);
  return 0;
}

// The values go to out once, before the first value text that uses them.
void tClauseData::Expand(tTextSink& out) {
  const tClauseTemplate& clause = *Template;
  int uses[2] = {0, 0};
  ResolvedPlaces(uses);
  tRecordValues values;
  values.Values[0] = &Values0;
  values.Values[1] = &Values1;
  if (uses[0]) Resolve(Values0, values.Resolved[0], 0);
  if (uses[1]) Resolve(Values1, values.Resolved[1], 1);
  bool handed = false;

  for (int i = 0; i < 4; ++i) {
    if (!InEffect(i)) continue;
    for (const tPrioritizedString* single : Walk<const tPrioritizedString>(clause.SingleTexts[i]))
      out.Single(*single);

    for (const tPrioritizedString* text : Walk<const tPrioritizedString>(clause.ValueTexts[i])) {
      int mentions0 = text->At("${0") >= 0;
      int mentions1 = text->At("${1") >= 0;
      int n0 = Values0.Size();
      int n1 = Values1.Size();
      // A mentioned place whose list is empty although the template asks for
      // that list produces nothing.
      int skip0 = mentions0 && clause.Value0Label.Length() > 0 && n0 == 0;
      int skip1 = mentions1 && clause.Value1Label.Length() > 0 && n1 == 0;
      if (skip0 || skip1) continue;
      if (!handed) out.Values(values);
      handed = true;
      out.Pairs(*text, mentions0 && n0 >= 1 ? n0 : 1, mentions1 && n1 >= 1 ? n1 : 1);
    }
  }
}
