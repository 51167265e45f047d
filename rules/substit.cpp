#include "rules/substit.h"

tSubstitutions::tSubstitutions(DListtString& names, DListtString& values)
    : Names(names), Values(values) {}

void tSubstitutions::Apply(String& text) {
  int pairs = Names.Size() < Values.Size() ? Names.Size() : Values.Size();
  for (int i = 0; i < pairs; ++i) text.ReplaceAll(Names[i]->Text(), Values[i]->Text());
}
