#include "update/target.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/common.h"
#include "output/savename.h"

namespace {

// Follows a chain of symbolic links to the file at its end; a relative link
// is relative to the folder of the link. The kernel's own limit of 40 links
// ends a loop of links, and the name left then fails to open.
String FollowLinks(const char* name) {
  String path(name);
  for (int links = 0; links < 40; ++links) {
    char target[4096];
    ssize_t length = readlink(path.Text(), target, sizeof target - 1);
    if (length < 0) break;
    target[length] = '\0';
    path = target[0] == '/' ? String(target) : path.Copy(0, path.AtLast('/') + 1) + target;
  }
  return path;
}

int SameFile(int fd, const char* name) {
  struct stat held, named;
  return fstat(fd, &held) == 0 && stat(name, &named) == 0 && held.st_dev == named.st_dev &&
         held.st_ino == named.st_ino;
}

}  // namespace

tUpdateTarget::tUpdateTarget(const char* name) : Given(name), Path(FollowLinks(name)), LockFd(-1) {}

tUpdateTarget::~tUpdateTarget() {
  if (LockFd >= 0) close(LockFd);
}

// The name given counts as well as the file it leads to: a link x.bak to x.flt
// carries the backup name of x.flt, and saving x.flt would replace the link by
// the backup.
int tUpdateTarget::Accept() {
  const String* refused = BackupName(Given) == Given ? &Given
                          : BackupName(Path) == Path ? &Path
                                                     : nullptr;
  if (!refused) return 1;
  Error(13, String("Cannot update '") + *refused +
                "': its backup file would have its own name. Rename the file first.");
  return 0;
}

// The lock sits on the file itself, and a save replaces the file by a new one
// under the same name. An update that waited for the lock may therefore hold
// a file that is no longer the one under the name; it then locks the new file
// instead, so that it reads what the update before it saved.
void tUpdateTarget::Lock() {
  for (;;) {
    LockFd = open(Path.Text(), O_RDONLY | O_CLOEXEC);
    if (LockFd < 0) return;
    if (flock(LockFd, LOCK_EX) != 0 || SameFile(LockFd, Path.Text())) return;
    close(LockFd);
    LockFd = -1;
  }
}
