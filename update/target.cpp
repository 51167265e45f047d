#include "update/target.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "app/common.h"
#include "output/savename.h"

namespace {

// Splits a path at its last slash: the folder part with the slash, and the
// name after it.
String FolderOf(const String& path) { return path.Copy(0, path.AtLast('/') + 1); }

// Opens folder (empty: the working folder) relative to base, a folder's
// descriptor or AT_FDCWD; an absolute folder ignores base.
int OpenFolder(int base, const String& folder) {
  const char* name = folder.Length() > 0 ? folder.Text() : ".";
  return openat(base, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

int SameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// Whether the link name in folder may be followed. In a sticky folder that
// anyone may write to, a link that belongs neither to the folder's owner nor
// to the user running the update may have been put there by another user to
// send the update to a file of their choosing: it is not followed. The kernel
// has the same rule (protected_symlinks), but the links are read here, not
// followed by the kernel, so it cannot apply it.
int MayFollow(int folder, const char* name) {
  struct stat link, owner;
  if (fstatat(folder, name, &link, AT_SYMLINK_NOFOLLOW) != 0 || fstat(folder, &owner) != 0)
    return 0;
  const mode_t open = S_ISVTX | S_IWOTH;
  if ((owner.st_mode & open) != open) return 1;
  return link.st_uid == owner.st_uid || link.st_uid == geteuid();
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
// step elsewhere. The kernel's own limit of 40 links ends a loop of links.
// Returns 1 when resolved, 0 when not, -1 after error 20 (a link of another
// user's in a folder open to all).
int tUpdateTarget::Resolve() {
  FolderFd = OpenFolder(AT_FDCWD, FolderOf(Given));
  BaseName = Given.Copy(Given.AtLast('/') + 1);
  for (int links = 0; FolderFd >= 0 && links < 40; ++links) {
    char target[4096];
    ssize_t length = readlinkat(FolderFd, BaseName.Text(), target, sizeof target - 1);
    if (length < 0) break;
    if (!MayFollow(FolderFd, BaseName.Text())) {
      Error(20, String("Cannot update '") + Path +
                    "': it is a symbolic link of another user in a folder that anyone may "
                    "write to, so it is not followed. Give the name of the file it points to.");
      return -1;
    }
    target[length] = '\0';
    String linked(target);
    Path = target[0] == '/' ? linked : FolderOf(Path) + linked;
    BaseName = linked.Copy(linked.AtLast('/') + 1);
    if (FolderOf(linked).Length() == 0) continue;
    int next = OpenFolder(FolderFd, FolderOf(linked));
    close(FolderFd);
    FolderFd = next;
  }
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
