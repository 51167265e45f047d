#include "check/notetexts.h"

#include <cstring>

#include "app/common.h"
#include "check/addresses.h"
#include "check/findings.h"
#include "check/hints.h"
#include "rules/clause.h"
#include "rules/numbers.h"

namespace {

typedef String (*tTail)(const tNoteContext&);

// One note's finding: Text, with each '@' standing for the quoted detail,
// then what Tail makes of the context.
struct tNoteText {
  tNote Note;
  const char* Text;
  tTail Tail;
};

const char kDropped[] = ": the clause ends here and its texts are dropped (write ";

// Field k (from 0) of a header line's fields as the reader splits them.
String Field(const String& fields, int k) {
  DListtString split;
  SplitFields(split, fields.Text());
  const tString* field = split[k];
  return field ? String(*field) : Empty;
}

String Header(const tNoteContext& c) { return HeaderHint(c.Detail) + ")"; }
String HeaderOnOneLine(const tNoteContext& c) { return HeaderHint(c.Detail) + " on one line)"; }

String UnknownKind(const tNoteContext& c) {
  return Quoted(Field(c.Detail, 2)) + ", neither S nor V" + kDropped + HeaderHint(c.Detail) + ")";
}

String VariantHeld(const tNoteContext& c) {
  String field = Field(c.Detail, 0);
  return Quoted(field) + " lies outside 0 to 3: the text goes to variant " +
         Number(ToPriority(field.Text()) < 0 ? 0 : 3) + " (write " + HeaderHint(c.Detail) + ")";
}

String HeldTo(const tNoteContext& c) { return Number(ToPriority(c.Detail.Text())); }

String KnownSection(const tNoteContext& c) {
  const char* meant = MeantSection(c.Detail);
  return meant ? "(write " + Quoted(String("~~~~") + meant) + ")"
               : String("(the sections are \"Substitutions\", \"Main Rules\" and \"Label Rules\")");
}

String NamedSection(const tNoteContext& c) {
  const char* meant = MeantSection(c.Detail);
  return Quoted(String("~~~~") + (meant ? meant : "Main Rules")) + ")";
}

String RestOfLine(const tNoteContext& c) { return c.Detail.Copy(c.Detail.AtFirstNotIn(" \t,")); }

String LabelLine(const tNoteContext& c) {
  return Quoted("~" + Number(ToPriority(c.Detail.Text()))) + ")";
}

String Unclosed(const tNoteContext& c) { return Quoted("|" + c.Detail + "|VALUE|") + ")"; }

String States(const tNoteContext& c) {
  return StatesHint(c.Noted, c.Names.Find(HeadName(c.Noted))) + ")";
}

String StateEntries(const tNoteContext& c) { return StateEntriesHint(c.Noted, c.Head) + ")"; }

String Glued(const tNoteContext& c) {
  String read = c.Detail.Strip(" \t");
  return Quoted(read) +
         (SplitAddress(c.Detail) ? " (one address was meant: write "
                                 : " (separate entries with commas: write ") +
         ListHint(JoinedAddresses(c.Noted)) + ")";
}

String Unknown(const tNoteContext& c) { return c.Names.UnknownClause(c.Detail, c.Noted); }

String SetName(const tNoteContext& c) { return Quoted("###~~~~" + c.Detail) + ")"; }

String OtherWriter(const tNoteContext& c) {
  return c.Detail + ", but this is " + ProgramName + version + AppVersion +
         ": check that the data is read as meant (ruleforge warning 1)";
}

const tNoteText kTexts[] = {
    {NoteNulByte,
     "line holds a NUL byte: ruleforge drops what follows it on the line, line end included, "
     "so the next line is read as part of this one (remove the byte)",
     nullptr},
    {NoteLineSkipped,
     "line @ is skipped: it belongs to no section, clause or text (begin a comment with \"//\")",
     nullptr},
    {NoteUnknownSection, "unknown section @: its lines are skipped ", KnownSection},
    {NoteSectionNameOnNextLine,
     "section marker \"~~~~\" has no name: the next line, @, is taken as the name (write ",
     NamedSection},
    {NoteHeaderAlone, "header line \"~\" alone: its fields are taken from the next line (write ",
     HeaderOnOneLine},
    {NoteHeaderNoCommas,
     "header line has no commas: the clause ends here and its texts are "
     "dropped (write ",
     Header},
    {NoteHeaderFewFields,
     "header line has fewer than three fields: the clause ends here and its "
     "texts are dropped (write ",
     Header},
    {NoteHeaderUnknownKind, "header line has the kind ", UnknownKind},
    {NoteVariantHeld, "variant ", VariantHeld},
    {NotePriorityHeld, "number @ lies beyond the 32-bit range: it is held to ", HeldTo},
    {NoteExtraStrings, "clause string line has more than seven strings: the rest of the line, ",
     [](const tNoteContext& c) { return RestOfLine(c) + ", is skipped"; }},
    {NoteNotClauseSeparator,
     "line @ begins with \"~~~\" but is not exactly \"~~~\": it is read as the start of a clause "
     "(write \"~~~\" alone)",
     nullptr},
    {NoteSecondCompanion,
     "second companion marker \"~~\" in one clause: the companion ends here and the lines after "
     "it are read as another clause",
     nullptr},
    {NoteLabelLineAlone,
     "label line \"~\" alone: the next line is read as the label priority (write ", LabelLine},
    {NoteSubstitutionSwallows,
     "substitution line ends with its delimiter: the next line is taken into it and lost (write "
     "\"|NAME|VALUE|\")",
     nullptr},
    {NoteSubstitutionUnclosed,
     "substitution @ has no delimiter after its value: the value is empty (write ", Unclosed},
    {NoteNoStates, "head line has no variant states: the next line is read as the states (write ",
     States},
    {NoteStateEntry, "variant state @ is read as on: only \"0\" means off (write ", StateEntries},
    {NoteTooManyStates, "more than four variant states: @ and those after it are dropped", nullptr},
    {NoteExtraDataLine, "line @ after the clause's two list lines is skipped", nullptr},
    {NoteGluedEntry, "entry @ has blanks inside: they are removed and it is read as ", Glued},
    {NoteUnknownClause, "", Unknown},
    {NoteClauseTwice,
     "clause @ again in this data set: these lines replace what was read for it above", nullptr},
    {NoteSetHeaderAlone,
     "data set header \"###~~~~\" has no name: @, from the next line, is taken as the name "
     "(write ",
     SetName},
    {NoteSetTwice, "data set @ again: what was read for it above is dropped", nullptr},
    {NoteOtherWriter, "the file was written with ", OtherWriter},
    {NoteOtherTemplate,
     "the file was made from the template titled @, not from this one: check that the data is "
     "read as meant (ruleforge warning 2)",
     nullptr},
};

}  // namespace

String NoteText(tNote what, const tNoteContext& context) {
  for (const tNoteText& entry : kTexts) {
    if (entry.Note != what) continue;
    String text;
    const char* p = entry.Text;
    for (const char* at; (at = std::strchr(p, '@')) != nullptr; p = at + 1)
      text += String(p).Head(static_cast<int>(at - p)) + Quoted(context.Detail);
    text += p;
    return entry.Tail ? text + entry.Tail(context) : text;
  }
  return Empty;
}
