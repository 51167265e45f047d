#include "check/endlines.h"

#include <algorithm>
#include <vector>

#include "check/records.h"

namespace {

// The list lines of the records that hold a clause's head line or a damaged
// marker: the clause above had no end line, and read them as its lists.
void ListLinesLost(const tClauseData& record, const tCheckNotes& notes, std::vector<int>& lost) {
  for (const DListtString* values : {&record.Values0, &record.Values1}) {
    int line = notes.LineOf(values);
    if (line > 0 && notes.Section().Misplaced(line)) lost.push_back(line);
  }
}

String Lines(int from, int to) {
  return from == to ? "line " + Number(from) : "lines " + Number(from) + " to " + Number(to);
}

void Report(int line, int last, const tDataLines& section, tFindings& findings) {
  findings.Drop(line, last);
  String taken =
      "the clause above runs on over " + Lines(line, last) + ", which are skipped or misread";
  String meant = section.Meant(line);
  if (meant.Length() > 0 && line == last) {
    findings.Add(line,
                 "end line with blanks after it is read as a clause named \"~~~\": "
                 "ruleforge stops with error 6 and writes nothing (write " +
                     Quoted(meant) + ")");
    return;
  }
  if (meant.Length() > 0) {
    findings.Add(line, "marker line written with blanks is not read as " + Quoted(meant) + ": " +
                           taken + " (write " + Quoted(meant) + ")");
    return;
  }
  findings.Add(line, "end line \"###~~~\" is missing before this clause's head line: " + taken +
                         " (write \"###~~~\" on a line of its own before it)");
}

}  // namespace

void CheckEndLines(tFilterData& document, const tCheckNotes& notes, tFindings& findings) {
  std::vector<int> lost = notes.EndsLost();
  ForEachRecord(document, [&](const tClauseData& record) { ListLinesLost(record, notes, lost); });
  const tDataLines& section = notes.Section();
  for (int line : section.DamagedLines()) lost.push_back(line);
  std::sort(lost.begin(), lost.end());
  int reported = 0;
  for (int line : lost) {
    if (line <= reported) continue;
    reported = section.SwallowedUpTo(line);
    Report(line, reported, section, findings);
  }
}
