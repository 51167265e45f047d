#include "update/preview.h"

#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "app/common.h"
#include "text/shown.h"

extern char** environ;

namespace {

const char kDiff[] = "/usr/bin/diff";

// Runs diff on the two descriptors as its 3 and 4; whether it did its work:
// it ended with status 0 (no differences) or 1 (differences shown), or by
// SIGPIPE, having written to a reader that stopped reading, as "| head" does:
// that reader saw differences, and the update is no worse for it.
bool RunDiff(int before, int after, const char* label) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, before, 3);
  posix_spawn_file_actions_adddup2(&actions, after, 4);
  char* argv[] = {
      const_cast<char*>("diff"),      const_cast<char*>("-u"),        const_cast<char*>("--label"),
      const_cast<char*>(label),       const_cast<char*>("--label"),   const_cast<char*>(label),
      const_cast<char*>("/dev/fd/3"), const_cast<char*>("/dev/fd/4"), nullptr};
  pid_t child;
  int spawned = posix_spawn(&child, kDiff, &actions, nullptr, argv, environ) == 0;
  posix_spawn_file_actions_destroy(&actions);
  int status;
  if (!spawned || waitpid(child, &status, 0) != child) return false;
  // Without WUNTRACED, waitpid reports only an end: by a signal or an exit.
  if (WIFSIGNALED(status)) return WTERMSIG(status) == SIGPIPE;
  return WEXITSTATUS(status) <= 1;
}

}  // namespace

void Preview(tFilterData& document, tUpdateTarget& target) {
  int fd = memfd_create("ruleforge-update", MFD_CLOEXEC);
  FILE* output = fd >= 0 ? fdopen(fd, "w+") : nullptr;
  if (!output) {
    if (fd >= 0) close(fd);
    Error(19, String("Cannot show the changes to '") + target.GivenName() +
                  "': no room for the new version.");
    return;
  }
  if (document.WriteData(output, target.Name()) >= 0) {
    // What this run printed before must come before the diff.
    std::fflush(stdout);
    // The labels are lines of the diff: a name's control characters are
    // escaped as in the messages, so that no name can break a line or reach
    // the terminal.
    if (!RunDiff(target.Fd(), fd, Shown(String(target.GivenName())).Text())) {
      Error(19, String("Cannot show the changes to '") + target.GivenName() + "': " + kDiff +
                    " failed.");
    }
  }
  std::fclose(output);
}
