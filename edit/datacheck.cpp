#include "edit/datacheck.h"

#include <cstdlib>
#include <cstring>

#include "check/lookups.h"
#include "edit/scratch.h"
#include "output/section.h"

tDataCheck::tDataCheck(const char* templateName, int resolve)
    : Notes(Findings), Checker(new tFilterData(templateName, 0, Notes)), Resolve(resolve) {
  Notes.Rules(&Checker->MainRules, &Checker->LabelRules);
}

tDataCheck::~tDataCheck() {}

void tDataCheck::Run(tFilterData& document) {
  Items.clear();
  tScratchFile written, printed;
  if (!written.File || !printed.File) return;
  if (WriteSection(written.File, document.TemplateTitle.Text(), document.DataSets) < 0 ||
      std::fflush(written.File) != 0)
    return;
  Findings.Begin("");
  Notes.BeginData();
  if (Checker->ReadData(written.Path.Text()) != 0) return;
  if (Resolve) CheckLookups(*Checker, Notes, Findings);
  Findings.Print(printed.File);
  std::fflush(printed.File);
  std::rewind(printed.File);
  // Each line reads ":LINE: warning: TEXT", of any length.
  String line;
  while (line.fgets(printed.File)) {
    const char* text = std::strstr(line.Text(), ": warning: ");
    if (text) Place(std::atoi(line.Text() + 1), text + 11);
  }
}

// The list read from that line, found by walking the records read back.
void tDataCheck::Place(int line, const std::string& text) {
  int s = 0;
  for (DListtClauseData* set : Walk<DListtClauseData>(Checker->DataSets)) {
    int r = 0;
    for (tClauseData* record : Walk<tClauseData>(*set)) {
      tClauseData* part = record;
      for (int p = 0; part && p < 2; ++p, part = part->Partner) {
        if (Notes.LineOf(&part->Values0) == line) return Items.push_back({s, r, p, 0, text});
        if (Notes.LineOf(&part->Values1) == line) return Items.push_back({s, r, p, 1, text});
      }
      ++r;
    }
    ++s;
  }
  Items.push_back({-1, -1, 0, -1, text});
}
