#include "rules/clause.h"

#include <charconv>
#include <cstring>

namespace {

int BeginsWithTilde(tFilterDataFile& in) { return in.Line().Text()[0] == '~'; }

// Notes the entry of text that begins at entry, without its outer blanks.
void NoteGlued(tFilterDataFile& in, int line, const String& text, const char* entry) {
  int length = static_cast<int>(std::strcspn(entry, ","));
  int start = 0;
  int end = length;
  while (start < end && std::strchr(" \r\t", entry[start])) ++start;
  while (end > start && std::strchr(" \r\t", entry[end - 1])) --end;
  in.Note(line, NoteGluedEntry,
          text.Copy(static_cast<int>(entry - text.Text()) + start, end - start));
}

// The next line is a value list unless it begins with '~'.
void ReadValues(tFilterDataFile& in, DListtString& values) {
  values.Clear();
  if (BeginsWithTilde(in)) return;
  int line = in.LineNumber;
  String text = in.GetLine();
  in.Placed(&values, line);
  // An entry with blanks inside is read with them removed, so the words
  // around them run together.
  SplitFields(values, text.Text(), [&](const char* entry) { NoteGlued(in, line, text, entry); });
}

}  // namespace

tClauseData::tClauseData()
    : Partner(nullptr),
      Template(nullptr),
      VariantStates{0, 0, 0, 0},
      OwnsPartner(false),
      ReadIn(false) {}

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

int StateField(const tClauseTemplate& clause, int variant) {
  if (clause.VariantLabels[variant].Length() == 0) return -1;
  int field = clause.VariantLabels[0].Length() == 0;
  for (int i = 0; i < variant; ++i) field += clause.VariantLabels[i].Length() > 0;
  return field;
}

void tClauseData::WriteStates(FILE* out) const {
  // Converted with to_chars rather than fprintf, which costs more than the
  // rest of the record's line.
  for (int i = 0; i < 4; ++i) {
    int field = StateField(*Template, i);
    if (field < 0) continue;
    if (field > 0) std::fputs(", ", out);
    char digits[16];
    char* end = std::to_chars(digits, digits + sizeof digits, VariantStates[i]).ptr;
    std::fwrite(digits, 1, end - digits, out);
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
  std::fputs("### \"", out);
  std::fwrite(Template->Name.Text(), 1, Template->Name.Length(), out);
  std::fputs("\", ", out);
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
void tClauseData::ReadPart(tFilterDataFile& in, int headLine) {
  if (in.Ch() == ',') in.GetCh();
  if (headLine && in.LineNumber != headLine) in.Note(headLine, NoteNoStates);
  int line = in.LineNumber;
  DListtString states;
  SplitFields(states, in.GetLine().Text());
  for (int k = 0; k < 4; ++k) {
    tString* state = states[k];
    VariantStates[k] = state ? (*state == "0" ? 0 : 1) : 0;
    // An empty place is how the writer skips an unlabelled variant 0.
    if (state && *state != "0" && *state != "1" &&
        (state->Length() > 0 || Template->VariantLabels[k].Length() > 0))
      in.Note(line, NoteStateEntry, *state);
  }
  if (states.Size() > 4) in.Note(line, NoteTooManyStates, *states[4]);
  ReadValues(in, Values0);
  ReadValues(in, Values1);
  while (!in.Eof() && !BeginsWithTilde(in)) {
    in.Note(in.LineNumber, NoteExtraDataLine, in.Line());
    in.Next();
  }
}

int tClauseData::Read(tFilterDataFile& in) {
  ReadIn = true;
  int headLine = in.TakenFrom;
  in.Placed(this, headLine);
  for (tClauseData* part = this;; part = part->Partner) {
    part->ReadPart(in, part == this ? headLine : 0);
    if (in.Line().StartsWith("~~~")) return 0;
    in.GetLine();  // the "~~" line that opens the companion's lines
    if (!part->Partner || part != this) return 0;
    in.Placed(part->Partner, in.LineNumber);
  }
}
