#include "rules/clause.h"

#include <new>
#include <string>

#include "rules/numbers.h"
#include "text/slotpool.h"

namespace {

tSlotPool& ListSlots() {
  static tSlotPool pool(sizeof(DListtPrioritizedString));
  return pool;
}

// The pool for the records of the given size: one for templates, one for data
// records; any other size (a derived class) uses the heap (null).
tSlotPool* RecordSlots(size_t size) {
  static tSlotPool templates(sizeof(tClauseTemplate));
  static tSlotPool data(sizeof(tClauseData));
  if (size == sizeof(tClauseTemplate)) return &templates;
  if (size == sizeof(tClauseData)) return &data;
  return nullptr;
}

void* TakeRecord(size_t size) {
  tSlotPool* pool = RecordSlots(size);
  return pool ? pool->Take() : ::operator new(size);
}

void GiveRecord(void* p, size_t size) {
  if (!p) return;
  tSlotPool* pool = RecordSlots(size);
  if (pool) {
    pool->Give(p);
  } else {
    ::operator delete(p);
  }
}

int ToVariant(int n) {
  if (n > 3) return 3;
  if (n < 0) return 0;
  return n;
}

// A line that holds more than blanks, tabs and commas.
int IsWritten(const String& line) { return line.AtFirstNotIn(" \t,") >= 0; }

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
  const char* text = header.Text();
  const int n = header.Length();
  std::string piece;
  int count = 0;
  for (int i = 0; i < n; ++count) {
    piece.clear();
    for (; i < n; ++i) {
      char c = text[i];
      if (c != ' ' && c != '\r' && c != '\n' && c != '\t' && c != ',') piece.push_back(c);
      if (c == ',' || c == '\n') {
        ++i;
        break;
      }
    }
    if (count < 3) fields[count] = piece.c_str();
  }
  return count;
}

}  // namespace

const DListtPrioritizedString& tTextLists::operator[](int variant) const {
  static const DListtPrioritizedString none;
  return Lists[variant] ? *Lists[variant] : none;
}

DListtPrioritizedString& tTextLists::Make(int variant) {
  if (!Lists[variant]) Lists[variant] = new (ListSlots().Take()) DListtPrioritizedString;
  return *Lists[variant];
}

tTextLists::~tTextLists() {
  for (DListtPrioritizedString* list : Lists) {
    if (!list) continue;
    list->~DListtPrioritizedString();
    ListSlots().Give(list);
  }
}

void SplitFields(DListtString& fields, const char* line) {
  fields.FromString(line, ",\n", " \r\n\t,", 0);
}

void* tClauseTemplate::operator new(size_t size) { return TakeRecord(size); }

void tClauseTemplate::operator delete(void* p, size_t size) { GiveRecord(p, size); }

void* tClauseData::operator new(size_t size) { return TakeRecord(size); }

void tClauseData::operator delete(void* p, size_t size) { GiveRecord(p, size); }

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
    if (IsWritten(file.Line()))
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
  if (file.LineNumber != line) file.Note(line, NoteHeaderAlone);
  String header = file.GetLine();
  String fields[3];
  int count = HeaderFields(header, fields);
  if (count == 0) return 0;
  const char* first = fields[0].Text();
  if (first[0] == '~') {
    // "~~" opens the companion template; a template that is itself a companion
    // (its Partner is already set) or "~~~..." ends here without one.
    if (first[1] != '~' && !Partner) {
      Partner = new tClauseTemplate;
      Partner->Partner = this;
      OwnsPartner = true;
      Partner->Read(file);
    } else if (Partner) {
      file.Note(line, NoteSecondCompanion);
    }
    return 0;
  }
  if (count < 3) {
    file.Note(line, header.At(',') < 0 ? NoteHeaderNoCommas : NoteHeaderFewFields, header);
    return 0;
  }
  int variant = ToPriority(first);
  if (variant < 0 || variant > 3) file.Note(line, NoteVariantHeld, fields[0]);
  variant = ToVariant(variant);
  int priority = ToPriority(fields[1].Text());
  if (IsHeld(priority, fields[1].Text())) file.Note(line, NotePriorityHeld, fields[1]);
  char kind = fields[2].ToUpper().Text()[0];
  DListtPrioritizedString* texts = nullptr;
  if (kind == 'S') texts = &SingleTexts.Make(variant);
  if (kind == 'V') texts = &ValueTexts.Make(variant);
  if (!texts) {
    file.Note(line, NoteHeaderUnknownKind, fields[2]);
    return 0;
  }

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
