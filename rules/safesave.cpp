#include "rules/clauslst.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "app/common.h"
#include "rules/writeerr.h"

namespace {

// The file name up to and including its last slash or backslash.
String DirectoryPart(const String& fileName) {
  int slash = fileName.AtLast('/');
  int backslash = fileName.AtLast('\\');
  int last = slash > backslash ? slash : backslash;
  return fileName.Copy(0, last + 1);
}

// out.flt gives out.bak, a.b.c gives a.b.bak; a dot in a directory name is not
// an extension, so dir.d/out gives dir.d/out.bak.
String BackupName(const String& fileName) {
  String name = fileName;
  int dot = name.AtLast('.');
  if (dot > name.AtLast('/') && dot > name.AtLast('\\')) name = name.Copy(0, dot);
  name += ".bak";
  return name;
}

// Opens the first free temporary name in the target's directory. Names that
// already exist are passed over rather than overwritten: such a file may hold
// the output of an earlier run whose final rename failed.
FILE* OpenTemporary(const String& directory, String& temporaryName) {
  for (long n = 0; n <= 98; ++n) {
    String number;
    number.Make(n);
    temporaryName = directory + "mkrule~." + number;
    if (FILE* file = std::fopen(temporaryName.Text(), "wx")) return file;
  }
  return nullptr;
}

// Flushes the temporary file to the disk, so that a crash right after the
// renames cannot leave an empty or partial file under the target's name.
int Commit(FILE* file) {
  int ok = std::fflush(file) == 0 && !std::ferror(file) && fsync(fileno(file)) == 0;
  return (std::fclose(file) == 0) && ok;
}

}  // namespace

int DListOfDListtClauseData::Write(const char* fileName, const char* title, int firstLabel,
                                   DListtString& names, DListtString& values) {
  tProgress progress;
  if (!fileName) {
    progress.Caption("Writing to stdout");
    return WriteTo(stdout, "", title, firstLabel, names, values, progress);
  }

  String target(fileName);
  String temporaryName;
  FILE* file = OpenTemporary(DirectoryPart(target), temporaryName);
  if (!file) {
    Error(7, String("Could not open temporary file '") + target + "' for writing!");
    return -1;
  }
  progress.Caption((String("Saving to ") + target).Text());
  int result = WriteTo(file, fileName, title, firstLabel, names, values, progress);
  if (!Commit(file) && result >= 0) result = WriteFailed(fileName);
  if (result < 0) {
    std::remove(temporaryName.Text());
    Warning(3, "Save Not Completed!");
    return result;
  }

  String backup = BackupName(target);
  if (std::remove(backup.Text()) != 0 && errno == EACCES) {
    Warning(4, String("can't remove old backup file '") + backup +
                   "'. File is read-only, in use, or owned by another user.");
  } else if (std::rename(fileName, backup.Text()) != 0 && errno != ENOENT) {
    Error(9, String("Error renaming original '") + target + "' to '" + backup + "'!");
    return -1;
  }
  if (std::rename(temporaryName.Text(), fileName) != 0) {
    Error(10, String("Error renaming '") + temporaryName + "' to '" + target +
                  "'. New filter is in '" + temporaryName + "'!");
    return -1;
  }
  return 0;
}
