#include "edit/save.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "app/common.h"
#include "edit/scratch.h"
#include "update/preview.h"
#include "update/save.h"
#include "update/sharedbak.h"
#include "update/target.h"

extern char** environ;

namespace {

int Exists(const char* fileName) { return access(fileName, F_OK) == 0; }

// Runs step with standard output going to file.
template <typename Step>
void Into(FILE* file, Step step) {
  std::fflush(stdout);
  int kept = dup(1);
  dup2(fileno(file), 1);
  step();
  std::fflush(stdout);
  dup2(kept, 1);
  close(kept);
}

// A file that does not exist yet has no version to compare with: every line
// of the output is new. ruleforge-update only updates files that exist, so
// this one case makes its own diff, of the output against /dev/null.
int DiffOfNewFile(tFilterData& document, const char* fileName) {
  tScratchFile output;
  if (!output.File) {
    Error(7, String("Could not open temporary file '") + fileName + "' for writing!");
    return error;
  }
  Into(output.File, [&] { document.WriteData(); });
  if (error != 0) return error;
  const char* argv[] = {"diff",   "-u",        "--label",          fileName, "--label",
                        fileName, "/dev/null", output.Path.Text(), nullptr};
  std::fflush(stdout);
  pid_t child;
  int status = 0;
  if (posix_spawn(&child, "/usr/bin/diff", nullptr, nullptr, const_cast<char**>(argv), environ) ==
      0)
    waitpid(child, &status, 0);
  else
    status = -1;
  if (!WIFEXITED(status) || WEXITSTATUS(status) > 1)
    Error(8, String("Could not show the difference for '") + fileName + "'.");
  return error;
}

}  // namespace

// A new file has nothing to lock or keep: it is made under its name, never
// over a file that appeared meanwhile, and removed again when its output
// could not be written whole.
int SaveNewFile(tFilterData& document, const char* fileName) {
  int fd = open(fileName, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  FILE* file = fd >= 0 ? fdopen(fd, "w") : nullptr;
  if (!file) {
    if (fd >= 0) close(fd);
    Error(32, String("Could not create '") + fileName + "'.");
    return error;
  }
  int written =
      document.WriteData(file, fileName) >= 0 && std::fflush(file) == 0 && fsync(fileno(file)) == 0;
  if (std::fclose(file) != 0 || !written) {
    if (error == 0) Error(8, String("Error writing to '") + fileName + "'. Disk may be full !");
    unlink(fileName);
  }
  return error;
}

int SaveFile(tFilterData& document, const char* fileName) {
  if (!Exists(fileName)) return SaveNewFile(document, fileName);
  tUpdateTarget target(fileName);
  if (target.Open() && BackupIsOwn(target)) SaveOver(document, target);
  return error;
}

int ShowDiff(tFilterData& document, const char* fileName) {
  if (!Exists(fileName)) return DiffOfNewFile(document, fileName);
  tUpdateTarget target(fileName);
  if (target.Open()) Preview(document, target);
  return error;
}

int DiffText(tFilterData& document, const char* fileName, std::string& text) {
  tScratchFile diff;
  if (!diff.File) {
    Error(7, String("Could not open temporary file '") + fileName + "' for writing!");
    return error;
  }
  Into(diff.File, [&] { ShowDiff(document, fileName); });
  if (error != 0) return error;
  text.clear();
  std::rewind(diff.File);
  char buffer[8192];
  size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, diff.File)) > 0) text.append(buffer, n);
  return 0;
}
