#include "check/run.h"

#include "app/common.h"
#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/endlines.h"
#include "check/entries.h"
#include "check/findings.h"
#include "check/lookups.h"
#include "check/starter.h"
#include "check/tplcheck.h"

int CheckFiles(const char* templateName, const std::vector<const char*>& dataFiles, int resolve,
               FILE* out) {
  // The readers report these conditions too; the notes make findings of them.
  QuietWarning(1);
  QuietWarning(2);
  QuietError(6);
  tFindings findings;
  tCheckNotes notes(findings);
  findings.Begin(templateName ? templateName : "mkrule.tpl");
  error = 0;
  tFilterData document(templateName, resolve, notes);
  if (error != 0) return 2;
  CheckTemplate(document, notes, findings);
  findings.Print(out);
  notes.Rules(&document.MainRules, &document.LabelRules);
  int unreadable = 0;
  for (const char* file : dataFiles) {
    findings.Begin(file ? file : "<stdin>");
    notes.BeginData();
    if (document.ReadData(file) < 0) {
      unreadable = 1;
      continue;
    }
    CheckEntries(document, notes, findings);
    if (resolve) CheckLookups(document, notes, findings);
    // Last: its findings replace those of the lines a lost end line swallowed.
    CheckEndLines(document, notes, findings);
    findings.Print(out);
  }
  if (unreadable) return 2;
  return findings.Total > 0 ? 1 : 0;
}

int WriteStarterFile(const char* templateName, FILE* out, FILE* findingsOut) {
  tFindings findings;
  tCheckNotes notes(findings);
  findings.Begin(templateName ? templateName : "mkrule.tpl");
  error = 0;
  tFilterData document(templateName, 0, notes);
  if (error != 0) return 2;
  WriteStarter(document, notes, findings, out);
  findings.Print(findingsOut);
  return findings.Total > 0 ? 1 : 0;
}
