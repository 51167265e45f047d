#ifndef RULEFORGE_EDIT_SCRATCH_H
#define RULEFORGE_EDIT_SCRATCH_H

#include <unistd.h>

#include <cstdio>
#include <string>

#include "text/str.h"

// An unnamed temporary file, open for writing and readable again by name
// through /proc, so that the program's readers, which open files by name,
// take what was written to it. Removed when closed; owns the stream.
class tScratchFile {
 public:
  tScratchFile() : File(std::tmpfile()) {
    if (!File) return;
    String number;
    number.Make(static_cast<long>(fileno(File)));
    Path = String("/proc/self/fd/") + number;
  }
  ~tScratchFile() {
    if (File) std::fclose(File);
  }
  tScratchFile(const tScratchFile&) = delete;
  tScratchFile& operator=(const tScratchFile&) = delete;

  // Null when no temporary file could be made.
  FILE* File;
  String Path;
};

// Runs step with standard error going to a scratch file, so that its messages
// do not land on the screen; the first of them is returned.
template <typename Step>
std::string Quietly(Step step) {
  tScratchFile messages;
  std::fflush(stderr);
  int kept = dup(2);
  if (messages.File) dup2(fileno(messages.File), 2);
  step();
  std::fflush(stderr);
  dup2(kept, 2);
  close(kept);
  std::string first;
  if (!messages.File) return first;
  std::rewind(messages.File);
  char line[1024];
  if (std::fgets(line, sizeof line, messages.File)) first = line;
  if (!first.empty() && first.back() == '\n') first.pop_back();
  return first;
}

#endif
