#include "rules/clause.h"

#include <algorithm>
#include <string>

#include "rules/numbers.h"

namespace {

int ToVariant(int n) { return std::clamp(n, 0, 3); }

void WriteTexts(FILE* stream, const DListtPrioritizedString& texts, int variant, char kind) {
  for (const tPrioritizedString* text : Walk<const tPrioritizedString>(texts)) {
    std::fprintf(stream, "~%d, %d, %c\n", variant, text->Priority, kind);
    std::fwrite(text->Text(), 1, text->Length(), stream);
  }
}

// The first three fields of a header line, as SplitFields splits it, into
// fields; returns how many fields the line has in all. A header is read for
// every text of every template, and a list of fields would cost an element,
// a link and a block for each.
int HeaderFields(const String& header, String fields[3]) {
  int count = 0;
  FieldRule().ForEach(header.Text(), [&](const std::string& piece, const char*, bool) {
    if (count < 3) fields[count] = piece.c_str();
    ++count;
  });
  return count;
}

}  // namespace

const DListtPrioritizedString& tTextLists::operator[](int variant) const {
  static const DListtPrioritizedString none;
  return Lists[variant] ? *Lists[variant] : none;
}

DListtPrioritizedString& tTextLists::Make(int variant) {
  if (!Lists[variant]) Lists[variant].reset(new DListtPrioritizedString);
  return *Lists[variant];
}

const tPieceRule& FieldRule() {
  static const tPieceRule fields(",\n", " \r\n\t,", 0);
  return fields;
}

void SplitFields(DListtString& fields, const char* line) { fields.FromString(line, FieldRule()); }

tClauseTemplate::tClauseTemplate() : Flags(0), Partner(nullptr), OwnsPartner(false) {}

// Unhooks the partner first, so that its own destructor leaves this template
// alone; then a main template deletes its companion.
tClauseTemplate::~tClauseTemplate() {
  if (!Partner) return;
  Partner->Partner = nullptr;
  if (OwnsPartner) delete Partner;
}

int tClauseTemplate::Read(tFilterTemplateFile& file) {
  String* strings[] = {
      &Name,        &VariantLabels[0], &VariantLabels[1], &VariantLabels[2], &VariantLabels[3],
      &Value0Label, &Value1Label};
  // The line each string came from tells whether the seven stood on one line
  // or ran onto the following ones.
  int line = 0;
  int onLine = 0;
  for (String* string : strings) {
    *string = file.GetString(-1);
    if (string == &Name) line = file.TakenFrom;
    onLine += file.TakenFrom == line;
  }
  file.Placed(this, line);
  int last = file.TakenFrom;
  if (last != line) {
    String count;
    count.Make(static_cast<long>(onLine));
    file.Note(line, NoteShortStringLine, count);
  }
  int labelled = 0;
  for (const String& label : VariantLabels) labelled |= label.Length() > 0;
  if (!labelled) Flags |= FixedClause;

  // The rest of the string line, and any line before the first header line,
  // carries nothing.
  while (file.Ch() != '~') {
    // The strings are separated by commas as well as blanks.
    if (IsWritten(file.Line(), " \t,"))
      file.Note(file.LineNumber, file.LineNumber == last ? NoteExtraStrings : NoteLineSkipped,
                file.Line());
    file.Next();
    if (file.Eof()) return 0;
  }
  if (file.Eof()) return 0;
  while (ReadText(file)) {
  }
  return 0;
}

int tClauseTemplate::ReadText(tFilterTemplateFile& file) {
  if (file.Line().StartsWith("~~~")) return 0;
  int line = file.LineNumber;
  file.GetCh();
  if (file.LineNumber != line) file.Note(line, NoteHeaderAlone, file.Line());
  String header = file.GetLine();
  String fields[3];
  int count = HeaderFields(header, fields);
  if (count == 0) return 0;
  if (fields[0].Text()[0] == '~') {
    ReadCompanion(file, fields[0].Text(), line);
    return 0;
  }
  if (count < 3) {
    file.Note(line, header.At(',') < 0 ? NoteHeaderNoCommas : NoteHeaderFewFields, header);
    return 0;
  }
  int priority;
  DListtPrioritizedString* texts = ListFor(file, line, header, fields, priority);
  if (!texts) return 0;

  tPrioritizedString* text = new tPrioritizedString(Empty, priority);
  texts->ToSorted(text);
  file.Placed(text, line);
  while (!file.Eof() && file.Ch() != '~') {
    file.Note(file.LineNumber, NoteTextLine);
    *text += file.GetLine();
    *text += "\n";
  }
  return file.Eof() ? 0 : 1;
}

// "~~" opens the companion template; a template that is itself a companion
// (its Partner is already set) or "~~~..." ends here without one.
void tClauseTemplate::ReadCompanion(tFilterTemplateFile& file, const char* marker, int line) {
  if (marker[1] != '~' && !Partner) {
    Partner = new tClauseTemplate;
    Partner->Partner = this;
    OwnsPartner = true;
    Partner->Read(file);
  } else if (Partner) {
    file.Note(line, NoteSecondCompanion);
  }
}

// The variant is held to 0..3 and the priority to the 32-bit range; a kind
// other than S or V gives no list.
DListtPrioritizedString* tClauseTemplate::ListFor(tFilterTemplateFile& file, int line,
                                                  const String& header, String fields[3],
                                                  int& priority) {
  int variant = ToPriority(fields[0].Text());
  if (variant < 0 || variant > 3) file.Note(line, NoteVariantHeld, header);
  variant = ToVariant(variant);
  priority = ToPriority(fields[1].Text());
  if (IsHeld(priority, fields[1].Text())) file.Note(line, NotePriorityHeld, fields[1]);
  char kind = fields[2].ToUpper().Text()[0];
  if (kind == 'S') return &SingleTexts.Make(variant);
  if (kind == 'V') return &ValueTexts.Make(variant);
  file.Note(line, NoteHeaderUnknownKind, header);
  return nullptr;
}

int tClauseTemplate::Write(FILE* stream) const {
  std::fprintf(stream, "\"%s\",  \"%s\",\"%s\",\"%s\",\"%s\",  \"%s\",\"%s\"\n", Name.Text(),
               VariantLabels[0].Text(), VariantLabels[1].Text(), VariantLabels[2].Text(),
               VariantLabels[3].Text(), Value0Label.Text(), Value1Label.Text());
  for (int variant = 0; variant < 4; ++variant) {
    WriteTexts(stream, SingleTexts[variant], variant, 'S');
    WriteTexts(stream, ValueTexts[variant], variant, 'V');
  }
  return 0;
}
