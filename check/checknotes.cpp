#include "check/checknotes.h"

#include <algorithm>
#include <cstring>
#include <functional>

#include "check/notetexts.h"
#include "parse/parsefil.h"

namespace {

const char kSectionEnd[] = "## End of parseable section";

typedef std::vector<std::pair<const void*, int>> tPlaceList;

int Find(const tPlaceList& places, const void* element) {
  auto after = std::upper_bound(places.begin(), places.end(), element,
                                [](const void* e, const std::pair<const void*, int>& place) {
                                  return std::less<const void*>()(e, place.first);
                                });
  return after != places.begin() && (after - 1)->first == element ? (after - 1)->second : 0;
}

}  // namespace

tCheckNotes::tCheckNotes(tFindings& findings)
    : Findings(findings),
      Sorted(true),
      LastPlaced(nullptr),
      LastPlacedLine(0),
      InData(false),
      Where(BeforeSection),
      RecentLine{0, 0, 0},
      StatesTaken(0),
      Swallowing(false) {}

void tCheckNotes::Rules(DListtClauseTemplate* mainRules, DListtClauseTemplate* labelRules) {
  Names.Rules(mainRules, labelRules);
}

void tCheckNotes::BeginData() {
  InData = true;
  DataPlaces.clear();
  Where = BeforeSection;
  RecentLine[0] = RecentLine[1] = RecentLine[2] = 0;
  StatesTaken = 0;
  Lines.Clear();
  LostEnds.clear();
  Swallowing = false;
}

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

const std::vector<int>& tCheckNotes::LinesOfText(const void* text) const {
  static const std::vector<int> none;
  auto found = TextLines.find(text);
  return found == TextLines.end() ? none : found->second;
}

std::pair<int, String> tCheckNotes::ShortStringLine(const void* clause) const {
  auto found = ShortStrings.find(clause);
  return found == ShortStrings.end() ? std::make_pair(0, Empty) : found->second;
}

void tCheckNotes::Placed(const void* element, int line) {
  (InData ? DataPlaces : TemplatePlaces).emplace_back(element, line);
  Sorted = false;
  LastPlaced = element;
  LastPlacedLine = line;
}

// Only the lines of the parseable section are data; what stands above it and
// the filter text below its end line are skipped as they should be.
void tCheckNotes::DataLine(int line, tNote what, const String& text) {
  if (what == NoteDataLine) {
    for (int k = 0; k < kRecent - 1; ++k) {
      RecentLine[k] = RecentLine[k + 1];
      RecentText[k] = RecentText[k + 1];
    }
    RecentLine[kRecent - 1] = line;
    RecentText[kRecent - 1] = text;
    if (Where == BeforeSection) Where = InSection;
    if (Where == InSection) Lines.Add(line, text, Names);
    if (text.StartsWith("###~~~")) Swallowing = false;
    if (Where == BelowSection)
      Findings.Add(line,
                   "line below the end of the parseable section begins with \"###\": it is "
                   "read as data (begin filter text lines otherwise)");
    return;
  }
  if (Where != InSection) return;
  if (what == NoteBareMarker) {
    Findings.Add(
        line,
        "line \"###\" alone is skipped, so the list lines after it move up (delete it, or write "
        "\"### \" with a blank for an empty list)");
  } else if (text.StartsWith(kSectionEnd)) {
    Where = BelowSection;
  } else if (IsWritten(text) && !text.StartsWith("## ")) {
    Findings.Add(line,
                 "line does not begin with \"###\": it is skipped and lost on "
                 "regeneration (begin data lines with \"###\", comments with \"## \")");
  }
}

bool tCheckNotes::Taken(int line, tNote what, const String& detail) {
  switch (what) {
    case NoteDataLine:
    case NoteDataLineSkipped:
    case NoteBareMarker:
      // Every line of a data input comes here; most are as meant.
      DataLine(line, what, detail);
      return true;
    case NoteTextLine:
      TextLines[LastPlaced].push_back(line);
      return true;
    case NoteShortStringLine:
      ShortStrings[LastPlaced] = std::make_pair(line, detail);
      return true;
    case NoteNulByte:
      if (InData && Where == BelowSection) return true;
      Findings.Alone(line);
      return false;
    case NoteNoStates:
      // The line read as the states is the cause's effect, not a finding of
      // its own.
      StatesTaken = RecentLine[kRecent - 1];
      return false;
    case NoteStateEntry:
    case NoteTooManyStates:
      return line == StatesTaken;
    case NoteExtraDataLine:
      if (Lines.Misplaced(line) && !Swallowing) {
        LostEnds.push_back(line);
        Swallowing = true;
      }
      return Swallowing;
    default:
      return false;
  }
}

void tCheckNotes::Note(int line, tNote what, const String& detail) {
  if (Taken(line, what, detail)) return;
  int k = kRecent - 1;
  while (k >= 0 && RecentLine[k] != line) --k;
  const String& noted = k >= 0 ? RecentText[k] : Empty;
  // A companion's states line is placed too, but holds no clause name: it
  // follows a "###~~" line.
  const String& before = k > 0 ? RecentText[k - 1] : Empty;
  int companion = before.StartsWith("###~~") && !before.StartsWith("###~~~");
  int head = InData && line == LastPlacedLine && !companion;
  String text = NoteText(what, {detail, noted, head, Names});
  if (text.Length() > 0) Findings.Add(line, text);
}
