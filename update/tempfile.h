#ifndef RULEFORGE_UPDATE_TEMPFILE_H
#define RULEFORGE_UPDATE_TEMPFILE_H

#include <sys/stat.h>

#include <cstdio>

#include "text/str.h"

// The new version of a file while it is written, in the file's folder. Made
// without a name where the file system allows (O_TMPFILE) and named
// "mkrule~." plus a number only once complete; elsewhere created under such a
// name with O_EXCL and no access for anyone but its owner. Either way it gets
// the old file's owner, group and mode before its first byte. Owns its
// descriptor and stream; a name it still holds when destroyed is removed.
class tTemporaryFile {
 public:
  // folder is a descriptor of the folder, shownFolder that folder as messages
  // show it (empty or ending in a slash); shownFile the file being replaced.
  tTemporaryFile(int folder, const String& shownFolder, const char* shownFile);
  ~tTemporaryFile();
  tTemporaryFile(const tTemporaryFile&) = delete;
  tTemporaryFile& operator=(const tTemporaryFile&) = delete;

  // Creates the file with the owner, group and mode of old. Reports error 7
  // (no file could be made) or 17 (the attributes could not be set) and
  // returns 0; 1 when the stream is ready.
  int Create(const struct stat& old);
  FILE* Stream() { return File; }
  int Fd() const;
  // Flushes the stream and syncs the file to the disk; -1 after error 8.
  int Finish();
  // Gives an unnamed file its name; reports error 7 and returns 0 when every
  // name is taken.
  int Link();
  // The name in the folder, and as messages show it.
  const String& Name() const { return TempName; }
  String ShownName() const { return ShownFolder + TempName; }
  // The name now belongs to the file it was renamed to.
  void Release();

 private:
  int Folder;
  String ShownFolder;
  const char* ShownFile;
  FILE* File;
  String TempName;
  int Named;

  int OpenUnnamed();
  int OpenNamed();
  int TakeAttributes(int fd, const struct stat& old);
};

#endif
