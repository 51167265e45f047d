#include "update/save.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "app/common.h"
#include "update/cleanup.h"
#include "update/replace.h"
#include "update/tempfile.h"

namespace {

// 1 when the two descriptors' files hold the same bytes; read from offset 0,
// their offsets unchanged.
int SameContent(int first, int second) {
  char a[65536], b[65536];
  for (off_t at = 0;; at += sizeof a) {
    ssize_t n = pread(first, a, sizeof a, at);
    ssize_t m = pread(second, b, sizeof b, at);
    if (n < 0 || n != m || std::memcmp(a, b, n) != 0) return 0;
    if (n == 0) return 1;
  }
}

}  // namespace

void SaveOver(tFilterData& document, tUpdateTarget& target) {
  struct stat old;
  if (fstat(target.Fd(), &old) != 0) {
    Error(17, String("Cannot read the owner, group and mode of '") + target.Name() + "' (" +
                  std::strerror(errno) + "); nothing was saved.");
    return;
  }
  tTemporaryFile temporary(target.Folder(), target.ShownFolder(), target.Name());
  if (!temporary.Create(old)) return;
  int result = document.WriteData(temporary.Stream(), target.Name());
  if (result >= 0) result = temporary.Finish();
  if (result < 0) {
    Warning(3, "Save Not Completed!");
    return;
  }
  if (SameContent(temporary.Fd(), target.Fd())) return;
  // The folder is synced before the new version gets its name, not after: a
  // folder that cannot be synced saves nothing, and the name exists only for
  // the few steps of the replacement, the one moment a SIGKILL could leave it.
  if (!SyncFolder(target, kSyncBefore)) return;
  if (!temporary.Link()) return;
  // A signal that comes from here on ends the run only once the file is
  // replaced and the folder synced, so that what it leaves lasts.
  tSignalsHeld held;
  int backedUp = Replace(target, temporary);
  if (backedUp >= 0) SyncFolder(target, backedUp ? kSyncBackedUp : kSyncNoBackup);
}
