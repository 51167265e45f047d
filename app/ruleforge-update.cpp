#include <cstring>
#include <new>

#include "app/about.h"
#include "app/common.h"
#include "app/filterd.h"
#include "text/str.h"
#include "update/target.h"

namespace {

const char* const kUsages[] = {"[-r] [-t templatefile] file"};
const tOptionHelp kOptions[] = {
    {"-r", "do not resolve host names"},
    {"-t templatefile", "read templatefile instead of mkrule.tpl"},
};
const tProgramHelp kHelp = {"ruleforge-update", kUsages, 1, kOptions, 2};

}  // namespace

// ruleforge-update [-r] [-t templatefile] file
// Regenerates a filter file in place: reads it as the data and saves the new
// output over it through a temporary file, keeping the old version as backup.
int main(int argc, char** argv) {
  std::set_new_handler(OutOfMemory);
  int answered = AnswerHelpOrVersion(argc, argv, kHelp);
  if (answered >= 0) return answered;
  String templateName;
  const char* fileName = nullptr;
  int resolve = 1;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "-r") == 0) {
      resolve = 0;
    } else if (std::strcmp(argv[i], "-t") == 0) {
      templateName = i + 1 < argc ? argv[++i] : "";
    } else if (argv[i][0] != '-' && !fileName) {
      fileName = argv[i];
    } else {
      Error(0, String("Unrecognized commandline option '") + argv[i] + "'. Use: " + argv[0] +
                   " [-r] [-t templatefile] file");
      return 1;
    }
  }
  if (!fileName) {
    Error(0, String("No file to update. Use: ") + argv[0] + " [-r] [-t templatefile] file");
    return 1;
  }

  tUpdateTarget target(fileName);
  if (!target.Accept()) return error;
  target.Lock();
  int status;
  {
    tFilterData document(templateName.Length() > 0 ? templateName.Text() : nullptr, resolve);
    if (error == 0) document.ReadData(target.GivenName());
    if (error == 0) document.WriteData(target.Name(), 1);
    status = error;
  }
  return status;
}
