#include "update/replace.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "app/common.h"
#include "output/savename.h"
#include "update/cleanup.h"

namespace {

// The errors by which a file system says it has no hard links.
int NoHardLinks(int error) { return error == EPERM || error == EOPNOTSUPP || error == EMLINK; }

}  // namespace

int SyncFolder(tUpdateTarget& target, int done) {
  if (fsync(target.Folder()) == 0) return 0;
  String reason = std::strerror(errno);
  String folder = target.ShownFolder().Length() > 0 ? target.ShownFolder() : String(".");
  if (done) {
    Error(18, String("Could not sync the folder '") + folder + "' to the disk (" + reason + "): '" +
                  target.Name() + "' holds the new version and '" +
                  BackupName(String(target.Name())) +
                  "' the old one, but a crash of the system may still undo the change.");
  } else {
    Error(18, String("Could not sync the folder '") + folder + "' to the disk (" + reason +
                  "); nothing was saved.");
  }
  return -1;
}

int Replace(tUpdateTarget& target, tTemporaryFile& temporary) {
  String shownFile(target.Name());
  String backup = BackupName(target.Base());
  String shownBackup = BackupName(shownFile);
  const char* base = target.Base().Text();
  int folder = target.Folder();
  tSignalsHeld held;

  // A backup that cannot be removed stays, and the file gets no new one.
  int keepOld = unlinkat(folder, backup.Text(), 0) != 0 && (errno == EACCES || errno == EPERM);
  int renamedAway = 0;
  if (keepOld) {
    Warning(4, String("can't remove old backup file '") + shownBackup +
                   "'. File is read-only, in use, or owned by another user.");
  } else if (linkat(folder, base, folder, backup.Text(), 0) != 0 && errno != ENOENT) {
    renamedAway = NoHardLinks(errno) && renameat(folder, base, folder, backup.Text()) == 0;
    if (!renamedAway && errno != ENOENT) {
      Error(9, String("Error renaming original '") + shownFile + "' to '" + shownBackup + "'!");
      Error(9, String("'") + shownFile + "' is unchanged; the new version is in '" +
                   temporary.ShownName() + "'.");
      temporary.Release();
      return -1;
    }
  }
  if (renameat(folder, temporary.Name().Text(), folder, base) != 0) {
    int restored = renamedAway && renameat(folder, backup.Text(), folder, base) == 0;
    Error(10, String("Error renaming '") + temporary.ShownName() + "' to '" + shownFile +
                  "'. New filter is in '" + temporary.ShownName() + "'!");
    Error(10, String("'") + (renamedAway && !restored ? shownBackup : shownFile) +
                  "' holds the old version; the new version is in '" + temporary.ShownName() +
                  "'.");
    temporary.Release();
    return -1;
  }
  temporary.Release();
  return 0;
}
