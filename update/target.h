#ifndef RULEFORGE_UPDATE_TARGET_H
#define RULEFORGE_UPDATE_TARGET_H

#include <sys/stat.h>

#include "text/str.h"

// The file an update reads and replaces, resolved once: the symbolic links of
// the name given are followed through descriptors of their folders, and from
// then on the file is its folder's descriptor and its name there, so that
// switching a link afterwards changes nothing. Owns the folder's descriptor
// and the file's, which carries an exclusive lock from Open() until it is
// destroyed; the data is read from that descriptor.
class tUpdateTarget {
 public:
  explicit tUpdateTarget(const char* name);
  ~tUpdateTarget();
  tUpdateTarget(const tUpdateTarget&) = delete;
  tUpdateTarget& operator=(const tUpdateTarget&) = delete;

  // Resolves the name, refuses what cannot be updated and waits until no
  // other update holds the file. Reports error 3 (cannot be opened), 13 (the
  // backup would have the file's own name), 14 (not a regular file) or 20 (a
  // link another user may have planted) and returns 0; 1 when the file is
  // open and locked.
  int Open();

  // The file that is replaced as messages show it: the folders of the links
  // followed, joined with the name at their end.
  const char* Name() const { return Path.Text(); }
  // The name as the user gave it, shown by messages about reading.
  const char* GivenName() const { return Given.Text(); }
  // The folder of the file and the file's name in it.
  int Folder() const { return FolderFd; }
  const String& Base() const { return BaseName; }
  // The open file, locked.
  int Fd() const { return FileFd; }
  // The folder as messages show it: empty, or ending in a slash.
  String ShownFolder() const;

 private:
  String Given;
  String Path;
  String BaseName;
  int FolderFd;
  int FileFd;

  int Resolve();
  int OpenRegular();
  int Accept() const;
};

#endif
