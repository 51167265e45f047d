#include "rules/clause.h"

#include "resolve/dnsresol.h"

namespace {

// The form of each entry that goes into a resolved place: "*" alone means any
// address, other wildcards become zeros, and host names become addresses when
// resolution is on. Empty entries get no resolved form and are taken out of
// values as well, so entry n of resolved still belongs to entry n of values.
void Resolve(DListtString& values, DListtString& resolved, int stripBlanks) {
  values.GotoHead();
  while (tString* entry = values.Current()) {
    String copy = stripBlanks ? entry->Strip(" \t\n\r") : String(*entry);
    if (copy.Length() == 0) {
      delete values.GetCurrent();
      continue;
    }
    if (copy == "*") {
      copy = "0;0";
    } else {
      copy.ReplaceAll("*", "0");
      if (Resolver) copy = Resolver->Lookup(copy);
    }
    resolved.ToTail(new tString(copy));
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
    DListtPrioritizedString& texts = clause.ValueTexts[i];
    for (texts.GotoHead(); texts.Current(); texts.Next()) {
      if (texts.Current()->At("${0R}") >= 0) places.Uses0R = 1;
      if (texts.Current()->At("${1R}") >= 0) places.Uses1R = 1;
      if (places.Uses0R && places.Uses1R) return places;
    }
  }
  return places;
}

}  // namespace

int tClauseData::WriteFilter(DListtPrioritizedString& out) {
  Expand(out);
  if (Partner) Partner->Expand(out);
  return 0;
}

void tClauseData::Expand(DListtPrioritizedString& out) {
  tClauseTemplate& clause = *Template;
  int inEffect[4];
  for (int i = 0; i < 4; ++i) {
    int labelled = clause.VariantLabels[i].Length() > 0;
    inEffect[i] = (i == 0 && !labelled) || (labelled && VariantStates[i] != 0);
  }
  tPlaces places = ScanResolvedPlaces(clause, inEffect);
  DListtString resolved0, resolved1;
  if (places.Uses0R) Resolve(Values0, resolved0, 0);
  if (places.Uses1R) Resolve(Values1, resolved1, 1);

  for (int i = 0; i < 4; ++i) {
    if (!inEffect[i]) continue;
    DListtPrioritizedString& singles = clause.SingleTexts[i];
    for (singles.GotoHead(); singles.Current(); singles.Next())
      out.ToSorted(new tPrioritizedString(*singles.Current()));

    DListtPrioritizedString& texts = clause.ValueTexts[i];
    for (texts.GotoHead(); texts.Current(); texts.Next()) {
      tPrioritizedString& text = *texts.Current();
      int mentions0 = text.At("${0") >= 0;
      int mentions1 = text.At("${1") >= 0;
      int n0 = Values0.Size();
      int n1 = Values1.Size();
      int end0 = mentions0 && n0 >= 1 ? n0 : 1;
      int end1 = mentions1 && n1 >= 1 ? n1 : 1;
      // A mentioned place whose list is empty although the template asks for
      // that list produces nothing.
      int skip0 = mentions0 && clause.Value0Label.Length() > 0 && n0 == 0;
      int skip1 = mentions1 && clause.Value1Label.Length() > 0 && n1 == 0;
      if (skip0 || skip1) continue;
      for (int j = 0; j < end0; ++j) {
        for (int k = 0; k < end1; ++k) {
          tPrioritizedString* made = new tPrioritizedString(text);
          if (tString* value = Values0[j]) made->ReplaceAll("${0}", value->Text());
          if (tString* value = Values1[k]) made->ReplaceAll("${1}", value->Text());
          if (places.Uses0R && resolved0[j]) made->ReplaceAll("${0R}", resolved0[j]->Text());
          if (places.Uses1R && resolved1[k]) made->ReplaceAll("${1R}", resolved1[k]->Text());
          out.ToSorted(made);
        }
      }
    }
  }
}
