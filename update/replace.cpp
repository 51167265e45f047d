#include "update/replace.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "app/common.h"
#include "output/savename.h"

namespace {

// The errors by which a file system says it has no hard links.
int NoHardLinks(int error) { return error == EPERM || error == EOPNOTSUPP || error == EMLINK; }

}  // namespace

bool SyncFolder(tUpdateTarget& target, tSyncMoment moment) {
  if (fsync(target.Folder()) == 0) return true;
  String start = String("Could not sync the folder '") +
                 (target.ShownFolder().Length() > 0 ? target.ShownFolder() : String(".")) +
                 "' to the disk (" + std::strerror(errno) + ")";
  String after = "; nothing was saved.";
  if (moment == kSyncBackedUp) {
    after = String(": '") + target.Name() + "' holds the new version and '" +
            BackupName(String(target.Name())) + "' the old one";
  } else if (moment == kSyncNoBackup) {
    after = String(": '") + target.Name() + "' holds the new version and the old one was not kept";
  }
  if (moment != kSyncBefore) after += ", but a crash of the system may still undo the change.";
  Error(18, start + after);
  return false;
}

namespace {

enum tBackup { kBackupLinked, kBackupKept, kBackupRenamed, kBackupFailed };

// Makes the file's backup: the old backup is removed and the file linked to
// its name, or, without hard links, renamed to it. A backup that cannot be
// removed stays, and the file gets no new one (warning 4).
tBackup MakeBackup(tUpdateTarget& target, const String& backup, const String& shownBackup) {
  int folder = target.Folder();
  const char* base = target.Base().Text();
  if (unlinkat(folder, backup.Text(), 0) != 0 && (errno == EACCES || errno == EPERM)) {
    Warning(4, String("can't remove old backup file '") + shownBackup +
                   "'. File is read-only, in use, or owned by another user.");
    Warning(4, String("'") + shownBackup + "' is not the version this update replaces in '" +
                   target.Name() + "', which is not kept; do not undo the update with it.");
    return kBackupKept;
  }
  if (linkat(folder, base, folder, backup.Text(), 0) == 0 || errno == ENOENT) return kBackupLinked;
  if (NoHardLinks(errno) && renameat(folder, base, folder, backup.Text()) == 0)
    return kBackupRenamed;
  return errno == ENOENT ? kBackupLinked : kBackupFailed;
}

}  // namespace

int Replace(tUpdateTarget& target, tTemporaryFile& temporary) {
  String shownFile(target.Name());
  String backup = BackupName(target.Base());
  String shownBackup = BackupName(shownFile);
  int folder = target.Folder();

  tBackup made = MakeBackup(target, backup, shownBackup);
  if (made == kBackupFailed) {
    String reason = std::strerror(errno);
    Error(9, String("Error renaming original '") + shownFile + "' to '" + shownBackup + "'!");
    Error(9, String("'") + shownFile + "' is unchanged (the backup could not be made: " + reason +
                 "); the new version is in '" + temporary.ShownName() + "'.");
    temporary.Release();
    return -1;
  }
  if (renameat(folder, temporary.Name().Text(), folder, target.Base().Text()) != 0) {
    int renamedAway = made == kBackupRenamed;
    int restored =
        renamedAway && renameat(folder, backup.Text(), folder, target.Base().Text()) == 0;
    Error(10, String("Error renaming '") + temporary.ShownName() + "' to '" + shownFile +
                  "'. New filter is in '" + temporary.ShownName() + "'!");
    Error(10, String("'") + (renamedAway && !restored ? shownBackup : shownFile) +
                  "' holds the old version; the new version is in '" + temporary.ShownName() +
                  "'.");
    temporary.Release();
    return -1;
  }
  temporary.Release();
  return made == kBackupKept ? 0 : 1;
}
