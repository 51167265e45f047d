#include "edit/save.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "app/common.h"
#include "edit/scratch.h"
#include "rules/outstage.h"
#include "update/target.h"

extern char** environ;

int SaveFile(tFilterData& document, const char* fileName) {
  tUpdateTarget target(fileName);
  if (!target.Accept()) return error;
  target.Lock();
  document.WriteData(target.Name(), 1);
  return error;
}

int ShowDiff(tFilterData& document, const char* fileName) {
  tScratchFile scratch;
  if (!scratch.File) {
    Error(7, String("Could not open temporary file '") + fileName + "' for writing!");
    return error;
  }
  tProgress progress;
  tOutputFrame frame{document.TemplateTitle.Text(), document.FirstLabel, document.SubstitutionNames,
                     document.SubstitutionValues};
  if (document.DataSets.WriteTo(scratch.File, fileName, frame, progress) < 0) return error;
  std::fflush(stdout);
  const char* old = access(fileName, F_OK) == 0 ? fileName : "/dev/null";
  String newLabel = String(fileName) + " (edited)";
  const char* argv[] = {"diff",          "-u", "--label",           fileName, "--label",
                        newLabel.Text(), old,  scratch.Path.Text(), nullptr};
  pid_t child;
  if (posix_spawn(&child, "/usr/bin/diff", nullptr, nullptr, const_cast<char**>(argv), environ) !=
      0) {
    Error(8, "Could not run /usr/bin/diff to show the difference.");
    return error;
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (!WIFEXITED(status) || WEXITSTATUS(status) > 1) {
    Error(8, String("Could not show the difference for '") + fileName + "'.");
    return error;
  }
  return 0;
}
