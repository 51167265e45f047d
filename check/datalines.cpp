#include "check/datalines.h"

#include <algorithm>
#include <cstring>

#include "check/hints.h"

namespace {

// The rest of a data line after "###" and blanks.
const char* Rest(const String& text) {
  const char* p = text.Text() + 3;
  return p + std::strspn(p, " \t");
}

}  // namespace

String MeantMarker(const String& text) {
  String stripped = text.Copy(3).Strip(" \t");
  if ((stripped == "~~~" || stripped == "~~") && stripped != text.Copy(3)) return "###" + stripped;
  return Empty;
}

void tDataLines::Clear() {
  Lines.clear();
  Tildes.clear();
  Heads.clear();
  Damaged.clear();
}

void tDataLines::Add(int line, const String& text, const tClauseNames& names) {
  Lines.push_back(line);
  if (text.StartsWith("###~~~")) Tildes.push_back(line);
  String meant = MeantMarker(text);
  if (meant.Length() > 0) Damaged.emplace(line, meant);
  const char* rest = Rest(text);
  if (*rest && std::strchr("\"'`", *rest) && names.Find(HeadName(text))) Heads.insert(line);
}

int tDataLines::SwallowedUpTo(int line) const {
  auto tilde = std::upper_bound(Tildes.begin(), Tildes.end(), line - 1);
  if (tilde != Tildes.end() && *tilde == line) return line;
  int end = tilde == Tildes.end() ? Lines.back() + 1 : *tilde;
  auto last = std::lower_bound(Lines.begin(), Lines.end(), end);
  return last == Lines.begin() ? line : std::max(line, *(last - 1));
}

String tDataLines::Meant(int line) const {
  auto found = Damaged.find(line);
  return found == Damaged.end() ? Empty : found->second;
}

std::vector<int> tDataLines::DamagedLines() const {
  std::vector<int> lines;
  for (const auto& damaged : Damaged) lines.push_back(damaged.first);
  std::sort(lines.begin(), lines.end());
  return lines;
}
