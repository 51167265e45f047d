#include "check/checknotes.h"

#include <strings.h>

#include <algorithm>
#include <cstring>
#include <functional>

#include "app/common.h"
#include "rules/numbers.h"
#include "text/dlist.h"

namespace {

const char kDropped[] = "the clause ends here and its texts are dropped";
const char kSectionEnd[] = "## End of parseable section";

// The words of a header line, joined as the writer writes them: "~0, 300, V".
String HeaderAsMeant(const String& fields) {
  String meant("~");
  const char* p = fields.Text();
  int words = 0;
  while (*p) {
    while (*p && std::strchr(" \t,", *p)) ++p;
    if (!*p) break;
    if (words++ > 0) meant += ", ";
    const char* end = p;
    while (*end && !std::strchr(" \t,", *end)) ++end;
    meant += String(p).Copy(0, static_cast<int>(end - p));
    p = end;
  }
  return words >= 3 ? meant : String("~variant, priority, kind");
}

// The known section that name was probably meant as, if any: the same letters
// in another case, or with blanks around them.
const char* MeantSection(const String& name) {
  static const char* const known[] = {"Substitutions", "Main Rules", "Label Rules"};
  const char* p = name.Text();
  while (*p == ' ' || *p == '\t') ++p;
  for (const char* candidate : known) {
    size_t n = std::strlen(candidate);
    if (strncasecmp(p, candidate, n) != 0) continue;
    const char* rest = p + n;
    while (*rest == ' ' || *rest == '\t') ++rest;
    if (!*rest) return candidate;
  }
  return nullptr;
}

int IsWritten(const String& line) { return line.AtFirstNotIn(" \t") >= 0; }

}  // namespace

tCheckNotes::tCheckNotes(tFindings& findings)
    : Findings(findings), Sorted(true), LastPlaced(nullptr), InData(false), Where(BeforeSection) {}

void tCheckNotes::Rules(DListtClauseTemplate* mainRules, DListtClauseTemplate* labelRules) {
  DListtClauseTemplate* lists[] = {mainRules, labelRules};
  for (int list = 0; list < 2; ++list) {
    for (auto& names : ByName[list]) names.clear();
    if (!lists[list]) continue;
    for (tClauseTemplate* clause : Walk<tClauseTemplate>(*lists[list])) {
      ByName[list][0].emplace(std::string_view(clause->Name.Text(), clause->Name.Length()), clause);
      if (const tClauseTemplate* companion = clause->Partner)
        ByName[list][1].emplace(std::string_view(companion->Name.Text(), companion->Name.Length()),
                                clause);
    }
  }
}

tClauseTemplate* tCheckNotes::Named(int list, const String& name, int companions) const {
  const auto& names = ByName[list][companions];
  auto found = names.find(std::string_view(name.Text(), name.Length()));
  return found == names.end() ? nullptr : found->second;
}

void tCheckNotes::BeginData() {
  InData = true;
  DataPlaces.clear();
  Where = BeforeSection;
}

namespace {

int Find(const std::vector<std::pair<const void*, int>>& places, const void* element) {
  auto after = std::upper_bound(places.begin(), places.end(), element,
                                [](const void* e, const std::pair<const void*, int>& place) {
                                  return std::less<const void*>()(e, place.first);
                                });
  return after != places.begin() && (after - 1)->first == element ? (after - 1)->second : 0;
}

}  // namespace

int tCheckNotes::LineOf(const void* element) const {
  if (!Sorted) {
    auto byAddress = [](const std::pair<const void*, int>& a,
                        const std::pair<const void*, int>& b) {
      return std::less<const void*>()(a.first, b.first);
    };
    std::stable_sort(TemplatePlaces.begin(), TemplatePlaces.end(), byAddress);
    std::stable_sort(DataPlaces.begin(), DataPlaces.end(), byAddress);
    Sorted = true;
  }
  int line = Find(DataPlaces, element);
  return line ? line : Find(TemplatePlaces, element);
}

void tCheckNotes::Placed(const void* element, int line) {
  (InData ? DataPlaces : TemplatePlaces).emplace_back(element, line);
  Sorted = false;
  LastPlaced = element;
}

const std::vector<int>& tCheckNotes::LinesOfText(const void* text) const {
  static const std::vector<int> none;
  auto found = TextLines.find(text);
  return found == TextLines.end() ? none : found->second;
}

// Only the lines of the parseable section are data; what stands above it and
// the filter text below its end line are skipped as they should be.
void tCheckNotes::DataLine(int line, tNote what, const String& text) {
  if (what == NoteDataLine) {
    if (Where == BeforeSection) Where = InSection;
    if (Where == BelowSection)
      Findings.Add(line,
                   "line below the end of the parseable section begins with \"###\": it is "
                   "read as data (begin filter text lines otherwise)");
    return;
  }
  if (Where != InSection) return;
  if (what == NoteBareMarker) {
    Findings.Add(line,
                 "line \"###\" alone is skipped, so the list lines after it move up (write "
                 "\"### \" with a blank for an empty list)");
  } else if (text.Head(static_cast<int>(std::strlen(kSectionEnd))) == kSectionEnd) {
    Where = BelowSection;
  } else if (IsWritten(text) && text.Head(3) != "## ") {
    Findings.Add(line,
                 "line does not begin with \"###\": it is skipped and lost on "
                 "regeneration (begin data lines with \"###\", comments with \"## \")");
  }
}

String tCheckNotes::UnknownClause(const String& name) {
  String quoted = Quoted(name);
  tClauseTemplate* main = Named(0, name, 0);
  tClauseTemplate* label = main ? nullptr : Named(1, name, 0);
  tClauseTemplate* clause = main ? main : label;
  if (clause && (clause->Flags & tClauseTemplate::FixedClause))
    return "clause " + quoted +
           " is fixed (it has no variants) and takes no data: ruleforge "
           "stops with error 6 and writes nothing (remove its lines)";
  if (main)
    return "clause " + quoted +
           " belongs to the \"Main Rules\": in a label data set ruleforge "
           "stops with error 6 and writes nothing (move it under "
           "\"###~~~~(Main)\")";
  if (label)
    return "clause " + quoted +
           " belongs to the \"Label Rules\": outside a label data set "
           "ruleforge stops with error 6 and writes nothing (move it under a "
           "\"###~~~~NAME\" line)";
  tClauseTemplate* owner = Named(0, name, 1);
  if (!owner) owner = Named(1, name, 1);
  if (owner)
    return quoted + " is the companion of clause " + Quoted(owner->Name) +
           ": named as a clause, ruleforge stops with error 6 and writes nothing (write its "
           "lines after \"###~~\" in that clause)";
  return "unknown clause " + quoted +
         ": ruleforge stops with error 6 and writes nothing "
         "(check the name against the template)";
}

void tCheckNotes::Note(int line, tNote what, const String& detail) {
  // Every line of a data input comes here; most are as meant.
  if (what == NoteDataLine || what == NoteDataLineSkipped || what == NoteBareMarker) {
    DataLine(line, what, detail);
    return;
  }
  if (what == NoteTextLine) {
    TextLines[LastPlaced].push_back(line);
    return;
  }
  String quoted = Quoted(detail);
  String text;
  switch (what) {
    case NoteNulByte:
      if (InData && Where == BelowSection) return;
      text =
          "line holds a NUL byte: ruleforge drops what follows it on the line, line end "
          "included, so the next line is read as part of this one (remove the byte)";
      break;
    case NoteLineSkipped:
      text = "line " + quoted +
             " is skipped: it belongs to no section, clause or text (begin a comment with \"//\")";
      break;
    case NoteUnknownSection: {
      const char* meant = MeantSection(detail);
      text = "unknown section " + quoted + ": its lines are skipped " +
             (meant ? String("(write \"~~~~") + meant + "\")"
                    : String("(the sections are \"Substitutions\", \"Main Rules\" and \"Label "
                             "Rules\")"));
      break;
    }
    case NoteSectionNameOnNextLine:
      text = "section marker \"~~~~\" has no name: the next line, " + quoted +
             ", is taken as the name (write the name on the marker's line, as in "
             "\"~~~~Main Rules\")";
      break;
    case NoteHeaderAlone:
      text =
          "header line \"~\" alone: its fields are taken from the next line (write "
          "\"~variant, priority, kind\" on one line)";
      break;
    case NoteHeaderNoCommas:
      text = String("header line has no commas: ") + kDropped + " (write " +
             Quoted(HeaderAsMeant(detail)) + ")";
      break;
    case NoteHeaderFewFields:
      text = String("header line has fewer than three fields: ") + kDropped +
             " (write \"~variant, priority, kind\")";
      break;
    case NoteHeaderUnknownKind:
      text = "header line has the kind " + quoted + ", neither S nor V: " + kDropped +
             " (write S or V)";
      break;
    case NoteVariantHeld:
      text = "variant " + quoted + " lies outside 0 to 3: the text goes to variant " +
             Number(ToPriority(detail.Text()) < 0 ? 0 : 3) + " (write a variant from 0 to 3)";
      break;
    case NotePriorityHeld:
      text = "number " + quoted + " lies beyond the 32-bit range: it is held to " +
             Number(ToPriority(detail.Text()));
      break;
    case NoteShortStringLine:
      text = "clause string line has " + detail +
             " of the seven strings: the rest is taken from the following lines (write all seven "
             "on one line, \"\" for an empty one)";
      break;
    case NoteExtraStrings:
      text = "clause string line has more than seven strings: the rest of the line, " +
             detail.Copy(detail.AtFirstNotIn(" \t,")) + ", is skipped";
      break;
    case NoteNotClauseSeparator:
      text = "line " + quoted +
             " begins with \"~~~\" but is not exactly \"~~~\": it is read as the start of a "
             "clause (write \"~~~\" alone)";
      break;
    case NoteSecondCompanion:
      text =
          "second companion marker \"~~\" in one clause: the companion ends here and the "
          "lines after it are read as another clause";
      break;
    case NoteLabelLineAlone:
      text =
          "label line \"~\" alone: the next line is read as the label priority (write the "
          "number after the \"~\", as in \"~500\")";
      break;
    case NoteSubstitutionSwallows:
      text =
          "substitution line ends with its delimiter: the next line is taken into it and lost "
          "(write \"|NAME|VALUE|\")";
      break;
    case NoteSubstitutionUnclosed:
      text = "substitution " + quoted +
             " has no delimiter after its value: the value is empty (write \"|NAME|VALUE|\")";
      break;
    case NoteDataLine:
    case NoteDataLineSkipped:
    case NoteBareMarker:
    case NoteTextLine:
      return;
    case NoteNoStates:
      text =
          "head line has no variant states: the next line is read as the states (write them "
          "after the name, as in ### \"NAME\", 1, 0)";
      break;
    case NoteStateEntry:
      text = "variant state " + quoted + " is read as on: only \"0\" means off (write 0 or 1)";
      break;
    case NoteTooManyStates:
      text = "more than four variant states: " + quoted + " and those after it are dropped";
      break;
    case NoteExtraDataLine:
      text = "line " + quoted + " after the clause's two list lines is skipped";
      break;
    case NoteGluedEntry:
      text = "entry " + quoted + " has blanks inside: they are removed and it is read as " +
             Quoted(detail.Strip(" \t")) + " (separate entries with commas)";
      break;
    case NoteUnknownClause:
      text = UnknownClause(detail);
      break;
    case NoteClauseTwice:
      text = "clause " + quoted +
             " again in this data set: these lines replace what was read for it above";
      break;
    case NoteSetHeaderAlone:
      text = "data set header \"###~~~~\" has no name: " + quoted +
             ", from the next line, is taken as the name";
      break;
    case NoteSetTwice:
      text = "data set " + quoted + " again: what was read for it above is dropped";
      break;
    case NoteOtherWriter:
      text = "the file was written with " + detail + ", but this is " + ProgramName + version +
             AppVersion + ": check that the data is read as meant (ruleforge warning 1)";
      break;
    case NoteOtherTemplate:
      text = "the file was made from the template titled " + quoted +
             ", not from this one: check that the data is read as meant (ruleforge warning 2)";
      break;
  }
  Findings.Add(line, text);
}
