#include "edit/save.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "app/common.h"
#include "edit/scratch.h"
#include "output/output.h"
#include "update/target.h"

extern char** environ;

int SaveFile(tFilterData& document, const char* fileName) {
  tUpdateTarget target(fileName);
  if (!target.Accept()) return error;
  target.Lock();
  document.WriteData(target.Name(), 1);
  return error;
}

int DiffText(tFilterData& document, const char* fileName, std::string& text) {
  tScratchFile scratch, diff;
  if (!scratch.File || !diff.File) {
    Error(7, String("Could not open temporary file '") + fileName + "' for writing!");
    return error;
  }
  // The output as ruleforge writes it to standard output, host names looked
  // up when the document resolves them.
  std::fflush(stdout);
  int kept = dup(1);
  dup2(fileno(scratch.File), 1);
  document.WriteData(nullptr);
  std::fflush(stdout);
  dup2(kept, 1);
  close(kept);
  if (error != 0) return error;
  const char* old = access(fileName, F_OK) == 0 ? fileName : "/dev/null";
  String newLabel = String(fileName) + " (edited)";
  const char* argv[] = {"diff",          "-u", "--label",           fileName, "--label",
                        newLabel.Text(), old,  scratch.Path.Text(), nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(diff.File), 1);
  pid_t child;
  int spawned =
      posix_spawn(&child, "/usr/bin/diff", &actions, nullptr, const_cast<char**>(argv), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (spawned == 0) waitpid(child, &status, 0);
  if (spawned != 0 || !WIFEXITED(status) || WEXITSTATUS(status) > 1) {
    Error(8, String("Could not show the difference for '") + fileName + "'.");
    return error;
  }
  text.clear();
  std::rewind(diff.File);
  char buffer[8192];
  size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, diff.File)) > 0) text.append(buffer, n);
  return 0;
}

int ShowDiff(tFilterData& document, const char* fileName) {
  std::string text;
  if (DiffText(document, fileName, text) != 0) return error;
  std::fwrite(text.data(), 1, text.size(), stdout);
  return 0;
}
