#include "rules/clause.h"

#include <string>
#include <unordered_map>
#include <utility>

#include "resolve/dnsresol.h"
#include "resolve/entry.h"
#include "rules/textsink.h"

namespace {

// The form of each entry that goes into a resolved place, handed to out.
// Empty entries get no resolved form and are taken out of values as well, so
// the n-th form handed in still belongs to entry n of values. Equal forms
// share one text, as a long list of a few names would otherwise keep a copy
// per entry until the output is written. An entry equal to an earlier one
// takes that one's form without asking again: the resolver answers a name it
// has met from its cache, with no warning and no lookup, so the form and
// everything the resolver does are what asking again would give.
void Resolve(DListtString& values, int place, tTextSink& out) {
  std::unordered_map<std::string, String> shared;
  std::unordered_map<std::string, String> byEntry;
  String form;
  values.GotoHead();
  while (tString* entry = values.Current()) {
    std::string key(entry->Text(), entry->Length());
    auto known = byEntry.find(key);
    if (known != byEntry.end()) {
      out.Resolved(place, known->second);
      values.Next();
      continue;
    }
    tEntryForm kind = EntryToResolve(*entry, place, form);
    if (kind == EntryNone) {
      delete values.GetCurrent();
      continue;
    }
    if (kind == EntryLookedUp && Resolver) form = Resolver->Lookup(form);
    const String& one = shared.emplace(form.Text(), form).first->second;
    out.Resolved(place, one);
    byEntry.emplace(std::move(key), one);
    values.Next();
  }
}

}  // namespace

int tClauseData::InEffect(int variant) const {
  // Check(variant) for a labelled variant, written out: this runs for every
  // variant of every record.
  if (Template->VariantLabels[variant].Length() == 0) return variant == 0;
  return VariantStates[variant] != 0;
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

// The values go to out first; the second place's entries are cleaned of
// blanks on the way to the resolver.
void tClauseData::Expand(tTextSink& out) {
  const tClauseTemplate& clause = *Template;
  int uses[2] = {0, 0};
  ResolvedPlaces(uses);
  out.Values(Values0, Values1);
  if (uses[0]) Resolve(Values0, 0, out);
  if (uses[1]) Resolve(Values1, 1, out);

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
      out.Pairs(*text, mentions0 && n0 >= 1 ? n0 : 1, mentions1 && n1 >= 1 ? n1 : 1);
    }
  }
}
