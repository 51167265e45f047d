#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <new>

#include "app/about.h"
#include "app/common.h"
#include "app/filterd.h"
#include "edit/commands.h"
#include "edit/editor.h"
#include "edit/model.h"
#include "edit/readback.h"
#include "edit/save.h"
#include "text/str.h"

namespace {

const char kUse[] = " [-r] [-t templatefile] [-n] file [command ...]";
const char* const kUsages[] = {"[-r] [-t templatefile] file",
                               "[-r] [-t templatefile] [-n] file command ..."};
const tOptionHelp kOptions[] = {
    {"-n", "print how the commands would change the file and save nothing"},
    {"-r", "do not resolve host names"},
    {"-t templatefile", "read templatefile instead of mkrule.tpl"},
};
const tProgramHelp kHelp = {"ruleforge-edit", kUsages, 2, kOptions, 3};

// Runs the commands and saves, or with dryRun prints what saving would change.
int Apply(tFilterData& document, const char* fileName, int count, char** words, int dryRun) {
  tEditModel model(document);
  tCommandRun run(model, stdout);
  int status = run.Run(count, words);
  if (status != 0) return status;
  if (model.Edits == 0 && !dryRun) return 0;
  String why;
  if (!DataReadsBack(document, why)) {
    Error(31, String("The edited data cannot be saved: ") + why + ".");
    return 31;
  }
  return dryRun ? ShowDiff(document, fileName) : SaveFile(document, fileName);
}

}  // namespace

// ruleforge-edit [-r] [-t templatefile] [-n] file [command ...]
// Edits the data of a filter file: the commands given, all or none, or with
// none the full-screen editor. A file that does not exist starts from the
// template's empty data. Saving regenerates the file as ruleforge-update does.
int main(int argc, char** argv) {
  std::set_new_handler(OutOfMemory);
  EscapeMessages = 1;
  int answered = AnswerHelpOrVersion(argc, argv, kHelp);
  if (answered >= 0) return answered;
  String templateName;
  int resolve = 1;
  int dryRun = 0;
  int i = 1;
  for (; i < argc && argv[i][0] == '-'; ++i) {
    if (std::strcmp(argv[i], "-r") == 0) {
      resolve = 0;
    } else if (std::strcmp(argv[i], "-n") == 0) {
      dryRun = 1;
    } else if (std::strcmp(argv[i], "-t") == 0) {
      templateName = i + 1 < argc ? argv[++i] : "";
    } else {
      Error(0, String("Unrecognized commandline option '") + argv[i] + "'. Use: " + argv[0] + kUse);
      return 1;
    }
  }
  if (i >= argc) {
    Error(0, String("No file to edit. Use: ") + argv[0] + kUse);
    return 1;
  }
  const char* fileName = argv[i++];
  if (i >= argc && !isatty(0)) {
    Error(0,
          String("No command given, and standard input is not a terminal for the editor. Use: ") +
              argv[0] + kUse);
    return 1;
  }
  const char* name = templateName.Length() > 0 ? templateName.Text() : nullptr;
  if (i >= argc) return RunEditor(name, resolve, fileName);
  int status;
  {
    tFilterData document(name, resolve);
    if (error == 0 && access(fileName, F_OK) == 0) document.ReadData(fileName);
    status = error != 0 ? error : Apply(document, fileName, argc - i, argv + i, dryRun);
  }
  return status;
}
