#include "check/findings.h"

#include <algorithm>

#include "text/shown.h"

void tFindings::Begin(const char* shownName) {
  Name = shownName;
  Items.clear();
  AloneLines.clear();
}

void tFindings::Add(int line, const String& text) {
  Items.emplace_back(line, text.Text());
  ++Total;
}

void tFindings::Drop(int from, int to) {
  size_t before = Items.size();
  Items.erase(std::remove_if(Items.begin(), Items.end(),
                             [&](const std::pair<int, std::string>& item) {
                               return item.first >= from && item.first <= to;
                             }),
              Items.end());
  Total -= static_cast<int>(before - Items.size());
}

void tFindings::Alone(int line) { AloneLines.emplace_back(line, Items.size()); }

void tFindings::Print(FILE* out) {
  std::vector<std::pair<int, std::string>> kept;
  for (size_t i = 0; i < Items.size(); ++i) {
    bool symptom = false;
    for (const auto& alone : AloneLines)
      symptom |= Items[i].first == alone.first && i != alone.second;
    if (!symptom) kept.push_back(Items[i]);
  }
  Items.swap(kept);
  std::stable_sort(Items.begin(), Items.end(),
                   [](const std::pair<int, std::string>& a, const std::pair<int, std::string>& b) {
                     return a.first < b.first;
                   });
  String name = Shown(Name.c_str());
  for (const auto& item : Items)
    std::fprintf(out, "%s:%d: warning: %s\n", name.Text(), item.first,
                 Shown(item.second.c_str()).Text());
  Items.clear();
  AloneLines.clear();
}

String Quoted(const String& text) { return String("\"") + text + "\""; }

String Number(long n) {
  String text;
  text.Make(n);
  return text;
}
