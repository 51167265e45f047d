#include "app/filterd.h"

#include <cstdio>

#include "app/common.h"
#include "resolve/dnsresol.h"
#include "rules/numbers.h"

namespace {

// Lines that a section's reading left unread are skipped, and noted unless the
// whole section is being skipped.
void SkipToSection(tFilterTemplateFile& file, int noteSkipped = 1) {
  while (!file.Eof() && !AtSectionSeparator(file)) {
    if (noteSkipped && IsWritten(file.Line()))
      file.Note(file.LineNumber, NoteLineSkipped, file.Line());
    file.Next();
  }
}

void SkipToLabelLine(tFilterTemplateFile& file) {
  while (!file.Eof() && file.Ch() != '~') {
    if (IsWritten(file.Line())) file.Note(file.LineNumber, NoteLineSkipped, file.Line());
    file.Next();
  }
}

// A failed read ends the input early, so what was read is incomplete and the
// run stops rather than generate from it.
void ReadError(const char* fileName) {
  Error(11, String("Error reading from '") + fileName + "'.");
}

// Pairs up to the shorter list: a name without a value is not written.
void WriteSubstitutions(FILE* out, const DListtString& names, const DListtString& values) {
  std::fputs("~~~~Substitutions\n", out);
  DListWalk<const tString> valueWalk(values);
  auto value = valueWalk.begin();
  for (const tString* name : Walk<const tString>(names)) {
    if (value == valueWalk.end()) break;
    std::fprintf(out, "|%s|%s|\n", name->Text(), (*value)->Text());
    ++value;
  }
}

}  // namespace

tFilterData::tFilterData(const char* templateName, int resolve, tReadNotes& notes)
    : FirstLabel(0), ResolveNames(resolve), Notes(notes) {
  ReadTemplate(templateName ? templateName : "mkrule.tpl");
}

// The members go in the reverse of their order: the substitutions, the title,
// the two template lists, and the data sets last. Records only point at their
// templates, so nothing is used after it is gone.
tFilterData::~tFilterData() {}

int tFilterData::New() { return DataSets.New(&MainRules); }

int tFilterData::ReadTemplate(const char* fileName) {
  tFilterTemplateFile file(fileName, Notes);
  if (!file.IsOpen) {
    Error(1, String("Could not open '") + fileName + "'.");
    return -1;
  }
  if (file.GetLine() != TemplateFileBanner) {
    file.Close();
    if (file.ReadFailed) {
      ReadError(fileName);
      return -11;
    }
    Error(2, String("'") + fileName + "' is not a valid filter template file.");
    return -2;
  }
  TemplateTitle = file.GetLine();
  file.Placed(&TemplateTitle, file.TakenFrom);
  MainRules.Clear();
  LabelRules.Clear();
  FirstLabel = 0;
  SubstitutionNames.Clear();
  SubstitutionValues.Clear();
  ReadSections(file);
  New();
  file.Close();
  if (file.ReadFailed) {
    ReadError(fileName);
    return -11;
  }
  return 0;
}

// Each section begins with "~~~~" and its name; a section of another name is
// skipped whole.
void tFilterData::ReadSections(tFilterTemplateFile& file) {
  SkipToSection(file);
  while (!file.Eof()) {
    int line = file.LineNumber;
    file.GetString(4);
    if (file.LineNumber != line) file.Note(line, NoteSectionNameOnNextLine, file.Line());
    String section = file.GetLine();
    int known = 1;
    if (section == "Substitutions") {
      ReadSubstitutions(file);
    } else if (section == "Main Rules") {
      MainRules.Read(file);
    } else if (section == "Label Rules") {
      ReadLabelRules(file);
    } else {
      known = 0;
      if (file.TakenFrom == line) file.Note(line, NoteUnknownSection, section);
    }
    SkipToSection(file, known);
  }
}

// Lines such as |PORT|23|: the first character is the delimiter, the name
// stands between its first two occurrences and the value before the third.
void tFilterData::ReadSubstitutions(tFilterTemplateFile& file) {
  while (!file.Eof() && file.Ch() != '~') {
    int line = file.LineNumber;
    char delimiter[2] = {file.GetCh(), '\0'};
    int end = file.Line().At(delimiter[0]);
    if (end >= 0) {
      tString* name = new tString(file.GetString(end));
      SubstitutionNames.ToTail(name);
      file.Placed(name, line);
      file.GetCh();
      end = file.Line().At(delimiter[0]);
      SubstitutionValues.ToTail(new tString(end >= 0 ? file.GetString(end) : Empty));
      if (end < 0 && file.LineNumber == line) file.Note(line, NoteSubstitutionUnclosed, *name);
    }
    // A delimiter that ends its line moves the reader on, so the value, or
    // even the name, was looked for in the next line, which is then dropped.
    if (file.LineNumber != line) file.Note(line, NoteSubstitutionSwallows);
    file.Next();
  }
}

void tFilterData::ReadLabelRules(tFilterTemplateFile& file) {
  SkipToLabelLine(file);
  if (!file.Eof() && file.Line().Text()[1] != '~') {
    int line = file.LineNumber;
    file.GetCh();
    if (file.LineNumber != line) file.Note(line, NoteLabelLineAlone, file.Line());
    // A number beyond the 32-bit range is held to it, as text priorities are.
    String number = file.GetLine();
    FirstLabel = ToPriority(number.Text());
    if (IsHeld(FirstLabel, number.Text())) file.Note(line, NotePriorityHeld, number);
  }
  LabelRules.Read(file);
}

int tFilterData::WriteTemplate(const char* fileName) const {
  FILE* out = fileName ? std::fopen(fileName, "w") : stderr;
  if (!out) {
    // No message of its own exists for this; the dump is a diagnostic aid, so
    // the run goes on and only a warning tells that it was not written.
    Warning(5, String("Could not write the template dump '") + fileName + "'.");
    return 0;
  }
  std::fprintf(out, "%s\n%s\n", TemplateFileBanner.Text(), TemplateTitle.Text());
  if (SubstitutionNames.Size() > 0) WriteSubstitutions(out, SubstitutionNames, SubstitutionValues);
  if (MainRules.Size() > 0) {
    std::fputs("~~~~Main Rules\n", out);
    MainRules.Write(out);
  }
  if (LabelRules.Size() > 0) {
    std::fprintf(out, "~~~~Label Rules\n~%d\n", FirstLabel);
    LabelRules.Write(out);
  }
  if (out != stderr) std::fclose(out);
  return 0;
}

int tFilterData::ReadData(const char* fileName, const char* shownName) {
  int result = DataSets.Read(fileName, TemplateTitle.Text(), MainRules, LabelRules, Notes);
  if (result >= 0) return 0;
  String name(shownName ? shownName : fileName);
  if (result == -1) {
    Error(3, String("Could not open '") + name + "'.");
    return -3;
  }
  if (result == -2) {
    Error(4, String("'") + name + "' does not contain parseable filter data.");
    return -4;
  }
  if (result == -3) {
    ReadError(name.Text());
    return -11;
  }
  Error(5, String("Unknown error loading '") + name + "'.");
  return -5;
}

tOutputFrame tFilterData::OutputFrame() const {
  return tOutputFrame{TemplateTitle.Text(), FirstLabel, SubstitutionNames, SubstitutionValues};
}

int tFilterData::WriteData(FILE* out, const char* shownName) {
  if (ResolveNames) Resolver = new tDNSResolver;
  tProgress progress;
  int result = WriteOutput(out, shownName, DataSets, OutputFrame(), progress);
  if (Resolver) {
    delete Resolver;
    Resolver = nullptr;
  }
  return result;
}
