#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <vector>

#include "app/about.h"
#include "app/common.h"
#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"
#include "check/lookups.h"
#include "check/tplcheck.h"
#include "text/str.h"
#include "update/cleanup.h"
#include "update/preview.h"
#include "update/save.h"
#include "update/sharedbak.h"
#include "update/target.h"
#include "update/updnotes.h"

namespace {

const char kUsage[] = " [-n] [-f] [-r] [-t templatefile] file...";
const char* const kUsages[] = {"[-n] [-f] [-r] [-t templatefile] file..."};
const tOptionHelp kOptions[] = {
    {"-n", "show what would change as a unified diff; save nothing"},
    {"-f", "save even when data lines are read otherwise than written"},
    {"-r", "do not resolve host names"},
    {"-t templatefile", "read templatefile instead of mkrule.tpl"},
};
const tProgramHelp kHelp = {"ruleforge-update", kUsages, 1, kOptions, 4};

struct tOptions {
  int Preview = 0;
  int Force = 0;
  int Resolve = 1;
  String TemplateName;
  std::vector<const char*> Files;
};

// Reads the options into options; reports error 0 and returns 0 for a word it
// does not know or when no file is named.
int ReadOptions(int argc, char** argv, tOptions& options) {
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "-n") == 0) {
      options.Preview = 1;
    } else if (std::strcmp(argv[i], "-f") == 0) {
      options.Force = 1;
    } else if (std::strcmp(argv[i], "-r") == 0) {
      options.Resolve = 0;
    } else if (std::strcmp(argv[i], "-t") == 0) {
      options.TemplateName = i + 1 < argc ? argv[++i] : "";
    } else if (argv[i][0] != '-') {
      options.Files.push_back(argv[i]);
    } else {
      Error(0,
            String("Unrecognized commandline option '") + argv[i] + "'. Use: " + argv[0] + kUsage);
      return 0;
    }
  }
  if (!options.Files.empty()) return 1;
  Error(0, String("No file to update. Use: ") + argv[0] + kUsage);
  return 0;
}

// Standard input is where each file's data is read from (ReadTarget). When the
// run starts with it closed, /dev/null takes its place, so that no file or
// folder this run opens gets descriptor 0 and is then closed under it.
void HoldStandardInput() {
  if (fcntl(0, F_GETFD) < 0) open("/dev/null", O_RDONLY);
}

// Reads the data of the target from its locked descriptor, through standard
// input, which the update does not use otherwise.
void ReadTarget(tFilterData& document, const tUpdateTarget& target) {
  if (dup2(target.Fd(), 0) < 0) {
    Error(3, String("Could not open '") + target.GivenName() + "'.");
    return;
  }
  std::rewind(stdin);
  std::clearerr(stdin);
  document.ReadData(nullptr, target.GivenName());
}

// Updates one file; its errors are reported, and error holds the last code.
void UpdateFile(tFilterData& document, tUpdateNotes& notes, tCheckNotes& check, tFindings& findings,
                const char* file, const tOptions& options) {
  tUpdateTarget target(file);
  if (!target.Open() || !BackupIsOwn(target)) return;
  findings.Begin(file);
  notes.BeginData();
  ReadTarget(document, target);
  if (error != 0) return;
  int misread = notes.DataFindings();
  if (options.Resolve) CheckLookups(document, check, findings);
  findings.Print(stderr);
  if (misread > 0 && !options.Force) {
    Error(15, String("'") + file +
                  "' holds lines that are read otherwise than written (above): saving would "
                  "make that permanent, so nothing was saved. Fix those lines (ruleforge-check "
                  "shows them too), or save anyway with -f.");
    return;
  }
  if (options.Preview)
    Preview(document, target);
  else
    SaveOver(document, target);
}

}  // namespace

// ruleforge-update [-n] [-f] [-r] [-t templatefile] file...
// Regenerates filter files in place, one after the other: reads each as the
// data, refuses one whose data lines are read otherwise than written (unless
// -f), and saves the new output over it through a temporary file, keeping the
// old version as backup. With -n it only shows the change as a diff. The exit
// status is the code of the last error.
int main(int argc, char** argv) {
  HoldStandardInput();
  InstallCleanup();
  EscapeMessages = 1;
  int answered = AnswerHelpOrVersion(argc, argv, kHelp);
  if (answered >= 0) return answered;
  tOptions options;
  if (!ReadOptions(argc, argv, options)) return 1;

  tFindings findings;
  tCheckNotes check(findings);
  tUpdateNotes notes(check, findings);
  const char* templateName =
      options.TemplateName.Length() > 0 ? options.TemplateName.Text() : nullptr;
  findings.Begin(templateName ? templateName : "mkrule.tpl");
  tFilterData document(templateName, options.Resolve, notes);
  if (error != 0) return error;
  CheckTemplate(document, check, findings);
  findings.Print(stderr);
  check.Rules(&document.MainRules, &document.LabelRules);

  int last = 0;
  for (const char* file : options.Files) {
    error = 0;
    UpdateFile(document, notes, check, findings, file, options);
    if (error != 0) last = error;
  }
  return last;
}
