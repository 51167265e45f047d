#include <cstdio>
#include <cstring>
#include <new>
#include <vector>

#include "app/about.h"
#include "app/common.h"
#include "check/run.h"
#include "check/stdinput.h"
#include "output/writeerr.h"
#include "text/str.h"

namespace {

// Ends the run with status, or with error 8 when standard output could not be
// written completely: findings lost on a full disk must not look like a clean
// check.
int Finish(int status) {
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
    WriteFailed("");
    return 8;
  }
  return status;
}

const char* const kUsages[] = {"[-r] [-t templatefile] [datafile ...]", "-s [-t templatefile]"};
const tOptionHelp kOptions[] = {
    {"-r", "look no names up; entries for resolved places are not checked as addresses"},
    {"-s", "print a starting data file for the template instead of checking"},
    {"-t templatefile", "read templatefile instead of mkrule.tpl"},
};
const tProgramHelp kHelp = {"ruleforge-check", kUsages, 2, kOptions, 3};

}  // namespace

// ruleforge-check [-r] [-t templatefile] [datafile ...]
// ruleforge-check -s [-t templatefile]
// Reads the template and each data file ("-" is standard input) as ruleforge
// reads them, with a receiver of the readers' notes, and prints one finding a
// line for everything skipped, cut or read otherwise than written. Status 0
// when nothing was found, 1 when something was, 2 when a file could not be
// read as a template or data file, 8 when standard output could not be
// written. With -s it prints a starting data file.
int main(int argc, char** argv) {
  std::set_new_handler(OutOfMemory);
  int answered = AnswerHelpOrVersion(argc, argv, kHelp);
  if (answered >= 0) return answered;
  EscapeMessages = 1;
  String templateName;
  int resolve = 1;
  int starter = 0;
  std::vector<const char*> dataFiles;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "-r") == 0) {
      resolve = 0;
    } else if (std::strcmp(argv[i], "-s") == 0) {
      starter = 1;
    } else if (std::strcmp(argv[i], "-t") == 0) {
      templateName = i + 1 < argc ? argv[++i] : "";
    } else if (argv[i][0] == '-' && argv[i][1] != '\0') {
      Error(0, String("Unrecognized commandline option '") + argv[i] + "'. Use: " + argv[0] +
                   " [-r] [-s] [-t templatefile] [datafile ...]");
      return 2;
    } else {
      dataFiles.push_back(argv[i]);
    }
  }

  if (starter && !dataFiles.empty()) {
    Error(0, String("Option -s reads no data files. Use: ") + argv[0] + " -s [-t templatefile]");
    return 2;
  }

  const char* name = templateName.Length() > 0 ? templateName.Text() : nullptr;
  if (starter) return Finish(WriteStarterFile(name, stdout, stderr));
  if (dataFiles.empty() && StandardInputHoldsData()) dataFiles.push_back("-");
  for (const char*& file : dataFiles)
    if (std::strcmp(file, "-") == 0) file = nullptr;
  return Finish(CheckFiles(name, dataFiles, resolve, stdout));
}
