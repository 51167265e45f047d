#include "rules/clause.h"

namespace {

int BeginsWithTilde(tFilterDataFile& in) { return in.Line().Text()[0] == '~'; }

}  // namespace

tClauseData::tClauseData()
    : Partner(nullptr), Template(nullptr), VariantStates{0, 0, 0, 0}, OwnsPartner(false) {}

// Unhooks the partner first, so that its own destructor leaves this record
// alone; then the first record of a pair deletes the second.
tClauseData::~tClauseData() {
  if (!Partner) return;
  Partner->Partner = nullptr;
  if (OwnsPartner) delete Partner;
}

void tClauseData::AdoptCompanion(tClauseData* companion) {
  Partner = companion;
  companion->Partner = this;
  OwnsPartner = true;
}

int tClauseData::Check(int i) const {
  return Template->VariantLabels[i].Length() > 0 && VariantStates[i] != 0;
}

int tClauseData::HasData() const {
  return Check(0) || Check(1) || Check(2) || Check(3) || Values0.Size() > 0 || Values1.Size() > 0;
}

// The separator before a state depends on the variant's index, not on what was
// written before it, so a state keeps its position when read back as long as
// the labelled variants form one run.
void tClauseData::WriteStates(FILE* out) const {
  for (int i = 0; i < 4; ++i) {
    if (Template->VariantLabels[i].Length() > 0)
      std::fprintf(out, "%s%d", i == 0 ? "" : ", ", VariantStates[i]);
  }
  std::fputs("\n", out);
}

// A first list line is written even when only Values1 has entries, so that
// Values1 stays on the second list line.
void tClauseData::WriteValues(FILE* out) {
  if (Values0.Size() == 0 && Values1.Size() == 0) return;
  DListtString* lists[] = {&Values0, &Values1};
  for (DListtString* values : lists) {
    if (values == &Values1 && Values1.Size() == 0) break;
    String line = values->ToString(", ", 0);
    std::fputs("### ", out);
    std::fwrite(line.Text(), 1, line.Length(), out);
    std::fputs("\n", out);
  }
}

int tClauseData::WriteParseable(FILE* out) {
  int companion = Partner && Partner->HasData();
  if (!HasData() && !companion) return 0;
  std::fprintf(out, "### \"%s\", ", Template->Name.Text());
  WriteStates(out);
  WriteValues(out);
  if (companion) {
    std::fputs("###~~\n### ", out);
    Partner->WriteStates(out);
    Partner->WriteValues(out);
  }
  std::fputs("###~~~\n", out);
  return 0;
}

// Variant states are placed by position: the k-th entry is variant k's state,
// and only the exact entry "0" means off. Entries past the fourth have no
// variant to belong to and are dropped.
void tClauseData::ReadPart(tFilterDataFile& in) {
  if (in.Ch() == ',') in.GetCh();
  DListtString states;
  SplitFields(states, in.GetLine().Text());
  for (int k = 0; k < 4; ++k) {
    tString* state = states[k];
    VariantStates[k] = state ? (*state == "0" ? 0 : 1) : 0;
  }
  Values0.Clear();
  if (!BeginsWithTilde(in)) SplitFields(Values0, in.GetLine().Text());
  Values1.Clear();
  if (!BeginsWithTilde(in)) SplitFields(Values1, in.GetLine().Text());
  while (!in.Eof() && !BeginsWithTilde(in)) in.Next();
}

int tClauseData::Read(tFilterDataFile& in) {
  for (tClauseData* part = this;; part = part->Partner) {
    part->ReadPart(in);
    if (in.Line().Head(3) == "~~~") return 0;
    in.GetLine();  // the "~~" line that opens the companion's lines
    if (!part->Partner || part != this) return 0;
  }
}
