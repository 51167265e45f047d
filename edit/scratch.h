#ifndef RULEFORGE_EDIT_SCRATCH_H
#define RULEFORGE_EDIT_SCRATCH_H

#include <cstdio>

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

#endif
