#include "check/tplcheck.h"

#include <cstring>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/hints.h"
#include "check/nested.h"
#include "text/dlist.h"

namespace {

// A labelled variant whose state the writer puts in another field than the
// reader takes it from.
int HasGap(const tClauseTemplate& clause) {
  for (int i = 0; i < 4; ++i)
    if (StateField(clause, i) >= 0 && StateField(clause, i) != i) return 1;
  return 0;
}

String Labelled(const tClauseTemplate& clause) {
  String list;
  for (int i = 0; i < 4; ++i) {
    if (clause.VariantLabels[i].Length() == 0) continue;
    if (list.Length() > 0) list += ", ";
    list += Number(i);
  }
  return list;
}

// The places a text uses: "${0" and "${1" begin a value place (with or
// without R), "${L}" the label place.
struct tPlaces {
  bool Value0 = false;
  bool Value1 = false;
  bool Label = false;
};

tPlaces PlacesIn(const char* begin, const char* end) {
  tPlaces places;
  for (const char* p = begin; p + 3 <= end; ++p) {
    if (p[0] != '$' || p[1] != '{') continue;
    places.Value0 |= p[2] == '0';
    places.Value1 |= p[2] == '1';
    places.Label |= p[2] == 'L' && p + 4 <= end && p[3] == '}';
  }
  return places;
}

// The physical line of each line of a text and the places each uses; a line
// whose number was not noted counts as the text's own line.
struct tTextLine {
  int Line;
  const char* Begin;
  const char* End;
  tPlaces Places;
};

std::vector<tTextLine> LinesOf(const tPrioritizedString& text, const tCheckNotes& notes) {
  const std::vector<int>& numbers = notes.LinesOfText(&text);
  std::vector<tTextLine> lines;
  for (const char* p = text.Text(); *p;) {
    const char* end = std::strchr(p, '\n');
    if (!end) end = p + std::strlen(p);
    int line = lines.size() < numbers.size() ? numbers[lines.size()] : notes.LineOf(&text);
    lines.push_back({line, p, end, PlacesIn(p, end)});
    p = *end ? end + 1 : end;
  }
  return lines;
}

// The first line that uses a place that wanted says, or the text's own line.
int FirstUsing(const std::vector<tTextLine>& lines, bool tPlaces::*place, int fallback) {
  for (const tTextLine& line : lines)
    if (line.Places.*place) return line.Line;
  return fallback;
}

void CheckValuePlaces(const tClauseTemplate& clause, const tPlaces& places,
                      const std::vector<tTextLine>& lines, int own, tFindings& findings) {
  const String* captions[] = {&clause.Value0Label, &clause.Value1Label};
  bool tPlaces::*used[] = {&tPlaces::Value0, &tPlaces::Value1};
  for (int list = 0; list < 2; ++list) {
    if (captions[list]->Length() > 0 || !(places.*used[list])) continue;
    String place = list == 0 ? "${0" : "${1";
    findings.Add(FirstUsing(lines, used[list], own),
                 "text uses " + place + "} or " + place +
                     "R} but the clause has no caption for that list: without entries the "
                     "place stays in the filter as written (give the list a caption)");
  }
}

void CheckText(const tClauseTemplate& clause, const tPrioritizedString& text, int value, int main,
               const tCheckNotes& notes, tFindings& findings) {
  int own = notes.LineOf(&text);
  std::vector<tTextLine> lines = LinesOf(text, notes);
  tPlaces places;
  for (const tTextLine& line : lines) {
    if (std::strncmp(line.Begin, "###", 3) == 0)
      findings.Add(line.Line,
                   "text line begins with \"###\": in the output it is read back as data on the "
                   "next run (begin it otherwise)");
    places.Value0 |= line.Places.Value0;
    places.Value1 |= line.Places.Value1;
    places.Label |= line.Places.Label;
  }
  if (main && places.Label)
    findings.Add(FirstUsing(lines, &tPlaces::Label, own),
                 "text of a main rule uses ${L}, which only label rules fill: it stays in the "
                 "filter as written");
  if (value) {
    CheckValuePlaces(clause, places, lines, own, findings);
  } else if (places.Value0 || places.Value1) {
    int line = own;
    for (auto it = lines.rbegin(); it != lines.rend(); ++it)
      if (it->Places.Value0 || it->Places.Value1) line = it->Line;
    findings.Add(line,
                 "single text (kind S) uses a value place, which only value texts (kind V) "
                 "fill: it stays in the filter as written");
  }
}

// The clause's seven strings as the writer puts them on one line.
String StringLine(const tClauseTemplate& clause) {
  const String* strings[] = {&clause.VariantLabels[0], &clause.VariantLabels[1],
                             &clause.VariantLabels[2], &clause.VariantLabels[3],
                             &clause.Value0Label,      &clause.Value1Label};
  String line = Quoted(clause.Name) + ",  ";
  for (int i = 0; i < 6; ++i) line += Quoted(*strings[i]) + (i == 3 ? ",  " : i < 5 ? "," : "");
  return line;
}

void CheckStringLine(const tClauseTemplate& clause, const tCheckNotes& notes, tFindings& findings) {
  std::pair<int, String> shortLine = notes.ShortStringLine(&clause);
  if (shortLine.first == 0) return;
  findings.Add(shortLine.first, "clause string line has " + shortLine.second +
                                    " of the seven strings: the rest is taken from the following "
                                    "lines (write " +
                                    Quoted(StringLine(clause)) + ")");
}

void CheckClause(const tClauseTemplate& clause, int main, const tCheckNotes& notes,
                 tFindings& findings) {
  int line = notes.LineOf(&clause);
  CheckStringLine(clause, notes, findings);
  if (HasGap(clause))
    findings.Add(line, "labelled variants " + Labelled(clause) + " of " + Quoted(clause.Name) +
                           " leave a gap: their states come back at the wrong position when the "
                           "output is read again (label the variants without a gap)");
  int texts = 0;
  for (int variant = 0; variant < 4; ++variant) {
    const DListtPrioritizedString* lists[] = {&clause.SingleTexts[variant],
                                              &clause.ValueTexts[variant]};
    for (int value = 0; value < 2; ++value) {
      for (const tPrioritizedString* text : Walk<const tPrioritizedString>(*lists[value])) {
        ++texts;
        CheckText(clause, *text, value, main, notes, findings);
      }
    }
  }
  if (texts == 0) findings.Add(line, Quoted(clause.Name) + " has no text: it produces nothing");
}

void CheckRules(DListtClauseTemplate& rules, int main, const tCheckNotes& notes,
                tFindings& findings) {
  std::unordered_map<std::string_view, int> first;
  first.reserve(rules.Size());
  for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(rules)) {
    int line = notes.LineOf(clause);
    auto seen = first.emplace(std::string_view(clause->Name.Text(), clause->Name.Length()), line);
    if (!seen.second)
      findings.Add(line, "clause " + Quoted(clause->Name) +
                             " again in this section (first at line " + Number(seen.first->second) +
                             "): no data line can name it, data reaches only the first");
    if (!CanBeNamed(clause->Name))
      findings.Add(line, "clause name " + Quoted(clause->Name) +
                             " holds a double quote: ruleforge writes the name back between "
                             "double quotes, so no data line names it on the next run (rename "
                             "the clause)");
    CheckClause(*clause, main, notes, findings);
    if (clause->Partner) CheckClause(*clause->Partner, main, notes, findings);
  }
}

void CheckSubstitutions(DListtString& names, DListtString& values, const tCheckNotes& notes,
                        tFindings& findings) {
  // Lines are found by the list elements' own addresses.
  std::vector<const tString*> pairNames;
  std::vector<const tString*> pairValues;
  for (const tString* value : Walk<const tString>(values)) pairValues.push_back(value);
  for (const tString* name : Walk<const tString>(names)) {
    if (pairNames.size() == pairValues.size()) break;
    pairNames.push_back(name);
  }
  std::vector<std::vector<int>> nested =
      NestedNames(std::vector<const String*>(pairNames.begin(), pairNames.end()));
  for (size_t i = 0; i < pairNames.size(); ++i) {
    const String& name = *pairNames[i];
    int line = notes.LineOf(pairNames[i]);
    if (name.Length() == 0) {
      findings.Add(line, "substitution with an empty name: it replaces nothing");
      continue;
    }
    if (pairValues[i]->At(name.Text()) >= 0)
      findings.Add(line, "substitution value contains its own name " + Quoted(name) +
                             ": the name stays in the output");
    for (int j : nested[i])
      findings.Add(line, "substitution name " + Quoted(name) + " and " + Quoted(*pairNames[j]) +
                             " (line " + Number(notes.LineOf(pairNames[j])) +
                             ") occur one inside the other: the order of the two decides what "
                             "is replaced");
  }
}

}  // namespace

void CheckTemplate(tFilterData& document, const tCheckNotes& notes, tFindings& findings) {
  const String& title = document.TemplateTitle;
  // The reader of the data drops a carriage return at the end of a line.
  if (title.Length() > 0 && title.Text()[title.Length() - 1] == '\r')
    findings.Add(notes.LineOf(&title),
                 "template title ends with a carriage return, which reading the data drops: "
                 "every run warns that the data was made from another template (ruleforge "
                 "warning 2) (remove it)");
  CheckSubstitutions(document.SubstitutionNames, document.SubstitutionValues, notes, findings);
  CheckRules(document.MainRules, 1, notes, findings);
  CheckRules(document.LabelRules, 0, notes, findings);
}
