#include "update/target.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "app/common.h"
#include "output/savename.h"
#include "update/linkwalk.h"

namespace {

// Splits a path at its last slash: the folder part with the slash, and the
// name after it.
String FolderOf(const String& path) { return path.Copy(0, path.AtLast('/') + 1); }

int SameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

tUpdateTarget::tUpdateTarget(const char* name)
    : Given(name), Path(name), FolderFd(-1), FileFd(-1) {}

tUpdateTarget::~tUpdateTarget() {
  if (FileFd >= 0) close(FileFd);
  if (FolderFd >= 0) close(FolderFd);
}

String tUpdateTarget::ShownFolder() const { return FolderOf(Path); }

int tUpdateTarget::Open() {
  int resolved = Resolve();
  if (resolved < 0 || !Accept()) return 0;
  if (!resolved) {
    Error(3, String("Could not open '") + Given + "'.");
    return 0;
  }
  return OpenRegular();
}

// Each link is read in the folder it lies in and its target opened from
// there, so a folder renamed or a link switched meanwhile cannot send a later
// step elsewhere; a link of another user's in a folder open to all is not
// followed (update/linkwalk.h). Returns 1 when resolved, 0 when not, -1 after
// error 20.
int tUpdateTarget::Resolve() {
  int links = 0;
  FolderFd = OpenFolderAt(AT_FDCWD, FolderOf(Given), links, Given.Text());
  BaseName = Given.Copy(Given.AtLast('/') + 1);
  while (FolderFd >= 0 && links < kMostLinks) {
    String linked;
    int link = ReadLink(FolderFd, BaseName.Text(), linked, Path, Given.Text());
    if (link < 0) return -1;
    if (link == 0) break;
    ++links;
    Path = linked[0] == '/' ? linked : FolderOf(Path) + linked;
    BaseName = linked.Copy(linked.AtLast('/') + 1);
    if (FolderOf(linked).Length() == 0) continue;
    int next = OpenFolderAt(FolderFd, FolderOf(linked), links, Given.Text());
    close(FolderFd);
    FolderFd = next;
  }
  if (FolderFd == -2) return -1;
  return FolderFd >= 0 && BaseName.Length() > 0;
}

// The name given counts as well as the file it leads to: a link x.bak to x.flt
// carries the backup name of x.flt, and saving x.flt would replace the link by
// the backup.
int tUpdateTarget::Accept() const {
  const String* refused = BackupName(Given) == Given ? &Given
                          : BackupName(Path) == Path ? &Path
                                                     : nullptr;
  if (!refused) return 1;
  Error(13, String("Cannot update '") + *refused +
                "': its backup file would have its own name. Rename the file first.");
  return 0;
}

// A FIFO would hang the reading and a device may act on being opened, so the
// kind is checked before the open, and again on what was opened. The lock sits
// on the file itself, and a save replaces the file by a new one under the same
// name: an update that waited for the lock locks the new file instead, so that
// it reads what the update before it saved.
int tUpdateTarget::OpenRegular() {
  for (;;) {
    struct stat named, held;
    int found = fstatat(FolderFd, BaseName.Text(), &named, AT_SYMLINK_NOFOLLOW) == 0;
    if (found && !S_ISREG(named.st_mode)) {
      Error(14, String("Cannot update '") + Path +
                    "': it is not a regular file (a folder, FIFO, device or link).");
      return 0;
    }
    FileFd = found ? openat(FolderFd, BaseName.Text(),
                            O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)
                   : -1;
    if (FileFd < 0 || fstat(FileFd, &held) != 0 || !S_ISREG(held.st_mode)) {
      Error(3, String("Could not open '") + Given + "'.");
      return 0;
    }
    if (flock(FileFd, LOCK_EX) != 0) return 1;
    if (fstatat(FolderFd, BaseName.Text(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
        SameFile(named, held))
      return 1;
    close(FileFd);
    FileFd = -1;
  }
}
