#include "edit/editor.h"

#include <unistd.h>

#include <string>

#include "app/common.h"
#include "check/checknotes.h"
#include "check/findings.h"
#include "edit/model.h"
#include "edit/scratch.h"
#include "edit/terminal.h"
#include "edit/view.h"

namespace {

std::string Printed(tFindings& findings) {
  tScratchFile scratch;
  std::string text;
  if (!scratch.File) return text;
  findings.Print(scratch.File);
  std::rewind(scratch.File);
  char buffer[4096];
  size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, scratch.File)) > 0) text.append(buffer, n);
  return text;
}

}  // namespace

int RunEditor(const char* templateName, int resolve, const char* fileName) {
  tFindings findings;
  tCheckNotes notes(findings);
  // The findings show what these report.
  QuietWarning(1);
  QuietWarning(2);
  QuietError(6);
  const char* name = templateName ? templateName : "mkrule.tpl";
  tFilterData document(name, resolve, notes);
  if (error != 0) return error;
  notes.Rules(&document.MainRules, &document.LabelRules);
  findings.Begin(fileName);
  notes.BeginData();
  if (access(fileName, F_OK) == 0) document.ReadData(fileName);
  if (error != 0 && error != 6) return error;
  error = 0;
  tEditModel model(document);
  tEditView view(model, fileName, name);
  std::string found = Printed(findings);
  tTerminal terminal;
  view.Run(terminal, found);
  return 0;
}
