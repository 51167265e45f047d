#include "output/save.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "app/common.h"
#include "output/output.h"
#include "output/savename.h"
#include "output/writeerr.h"

namespace {

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

// Gives the temporary file the permission bits, owner and group of the file it
// replaces, so that the new version is open to the same users as the old one.
void KeepAttributes(FILE* file, const char* fileName) {
  struct stat old;
  if (stat(fileName, &old) != 0) return;
  int fd = fileno(file);
  // Only a privileged process may give a file away; any other keeps at least
  // the group where it belongs to it, and otherwise its own.
  int kept = fchown(fd, old.st_uid, old.st_gid) == 0 ||
             fchown(fd, static_cast<uid_t>(-1), old.st_gid) == 0;
  (void)kept;
  fchmod(fd, old.st_mode & 07777);
}

// 1 when the two files can be read and hold the same bytes.
int SameBytes(const char* first, const char* second) {
  FILE* a = std::fopen(first, "rb");
  FILE* b = a ? std::fopen(second, "rb") : nullptr;
  int same = b != nullptr;
  while (same) {
    char bufferA[8192], bufferB[8192];
    size_t n = std::fread(bufferA, 1, sizeof bufferA, a);
    same = std::fread(bufferB, 1, sizeof bufferB, b) == n && !std::ferror(a) && !std::ferror(b) &&
           std::memcmp(bufferA, bufferB, n) == 0;
    if (n < sizeof bufferA) break;
  }
  if (b) std::fclose(b);
  if (a) std::fclose(a);
  return same;
}

// Renames are entries of the directory, which reaches the disk on its own.
void SyncDirectory(const String& directory) {
  int fd =
      open(directory.Length() > 0 ? directory.Text() : ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  fsync(fd);
  close(fd);
}

// Flushes the temporary file to the disk, so that a crash right after the
// renames cannot leave an empty or partial file under the target's name.
int Commit(FILE* file) {
  int ok = std::fflush(file) == 0 && !std::ferror(file) && fsync(fileno(file)) == 0;
  return (std::fclose(file) == 0) && ok;
}

}  // namespace

int SaveOutput(const char* fileName, DListOfDListtClauseData& sets, const tOutputFrame& frame,
               int keepUnchanged) {
  tProgress progress;
  String target(fileName);
  String directory = DirectoryPart(target);
  String temporaryName;
  FILE* file = OpenTemporary(directory, temporaryName);
  if (!file) {
    Error(7, String("Could not open temporary file '") + target + "' for writing!");
    return -1;
  }
  progress.Caption((String("Saving to ") + target).Text());
  // Before any byte is written, so the new output is never open to more users
  // than the old one.
  KeepAttributes(file, fileName);
  int result = WriteOutput(file, fileName, sets, frame, progress);
  if (!Commit(file) && result >= 0) result = WriteFailed(fileName);
  if (result < 0) {
    std::remove(temporaryName.Text());
    Warning(3, "Save Not Completed!");
    return result;
  }
  if (keepUnchanged && SameBytes(temporaryName.Text(), fileName)) {
    std::remove(temporaryName.Text());
    return 0;
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
    result = -1;
  }
  SyncDirectory(directory);
  return result < 0 ? -1 : 0;
}
