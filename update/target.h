#ifndef RULEFORGE_UPDATE_TARGET_H
#define RULEFORGE_UPDATE_TARGET_H

#include "text/str.h"

// The file an update reads and replaces. The name given is followed through
// its symbolic links, so that the file they point to is replaced and the links
// stay links. Holds an exclusive lock on that file from Lock() until it is
// destroyed; owns the descriptor that carries the lock.
class tUpdateTarget {
 public:
  explicit tUpdateTarget(const char* name);
  ~tUpdateTarget();
  tUpdateTarget(const tUpdateTarget&) = delete;
  tUpdateTarget& operator=(const tUpdateTarget&) = delete;

  // The file that is replaced, at the end of the links.
  const char* Name() const { return Path.Text(); }
  // The name as the user gave it: the file is read through it, so that a
  // message about reading names what the user named.
  const char* GivenName() const { return Given.Text(); }
  // Reports Error 13 and returns 0 when the backup name of the name given or
  // of the file it leads to is that name itself (saving would remove the file
  // it keeps); 1 otherwise.
  int Accept();
  // Waits until no other update holds the file. A file that cannot be opened
  // is not locked; reading it then reports it.
  void Lock();

 private:
  String Given;
  String Path;
  int LockFd;
};

#endif
