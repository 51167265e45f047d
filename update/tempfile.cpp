#include "update/tempfile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "app/common.h"
#include "output/writeerr.h"
#include "update/cleanup.h"

namespace {

const int kLastNumber = 98;

String NumberedName(int n) {
  String number;
  number.Make(static_cast<long>(n));
  return String("mkrule~.") + number;
}

// Reports that no temporary file could be had for shownFile; returns 0.
int NoTemporary(const char* shownFile) {
  Error(7, String("Could not open temporary file '") + shownFile + "' for writing!");
  return 0;
}

}  // namespace

tTemporaryFile::tTemporaryFile(int folder, const String& shownFolder, const char* shownFile)
    : Folder(folder), ShownFolder(shownFolder), ShownFile(shownFile), File(nullptr), Named(0) {}

tTemporaryFile::~tTemporaryFile() {
  if (Named) {
    unlinkat(Folder, TempName.Text(), 0);
    RemoveOnAbort(-1, nullptr);
  }
  if (File) std::fclose(File);
}

int tTemporaryFile::Fd() const { return File ? fileno(File) : -1; }

int tTemporaryFile::Create(const struct stat& old) {
  int fd = OpenUnnamed();
  if (fd < 0) fd = OpenNamed();
  if (fd < 0) return NoTemporary(ShownFile);
  File = fdopen(fd, "w");
  if (!File) {
    close(fd);
    return NoTemporary(ShownFile);
  }
  return TakeAttributes(fd, old);
}

// Mode 0600 until the old file's attributes are set: nobody else can open it
// meanwhile, and the descriptor of whoever could is the only one there is.
int tTemporaryFile::OpenUnnamed() {
#ifdef O_TMPFILE
  return openat(Folder, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
#else
  return -1;
#endif
}

// A name that exists is passed over, not overwritten: it may hold the new
// version of an earlier run whose last rename failed.
int tTemporaryFile::OpenNamed() {
  for (int n = 0; n <= kLastNumber; ++n) {
    String name = NumberedName(n);
    int fd = openat(Folder, name.Text(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd >= 0) {
      TempName = name;
      Named = 1;
      RemoveOnAbort(Folder, TempName.Text());
      return fd;
    }
    if (errno != EEXIST) return -1;
  }
  return -1;
}

// Owner and group first: giving a file away clears its set-user-ID and
// set-group-ID bits, which the mode then sets again.
int tTemporaryFile::TakeAttributes(int fd, const struct stat& old) {
  struct stat now;
  int ok = fstat(fd, &now) == 0;
  if (ok && (now.st_uid != old.st_uid || now.st_gid != old.st_gid))
    ok = fchown(fd, old.st_uid, old.st_gid) == 0;
  if (ok) ok = fchmod(fd, old.st_mode & 07777) == 0;
  if (ok) return 1;
  Error(17, String("Cannot give the new version of '") + ShownFile +
                "' the owner, group and mode of the file (" + std::strerror(errno) +
                "); nothing was saved.");
  return 0;
}

int tTemporaryFile::Finish() {
  if (std::fflush(File) != 0 || std::ferror(File) || fsync(fileno(File)) != 0)
    return WriteFailed(ShownFile);
  return 0;
}

// An unnamed file is linked through its entry in /proc, which needs no
// privilege, or else by its descriptor, which needs CAP_DAC_READ_SEARCH.
int tTemporaryFile::Link() {
  if (Named) return 1;
  char path[64];
  std::snprintf(path, sizeof path, "/proc/self/fd/%d", fileno(File));
  for (int n = 0; n <= kLastNumber; ++n) {
    String name = NumberedName(n);
    int linked =
        linkat(AT_FDCWD, path, Folder, name.Text(), AT_SYMLINK_FOLLOW) == 0 ||
        (errno == ENOENT && linkat(fileno(File), "", Folder, name.Text(), AT_EMPTY_PATH) == 0);
    if (linked) {
      TempName = name;
      Named = 1;
      RemoveOnAbort(Folder, TempName.Text());
      return 1;
    }
    if (errno != EEXIST) break;
  }
  return NoTemporary(ShownFile);
}

void tTemporaryFile::Release() {
  RemoveOnAbort(-1, nullptr);
  Named = 0;
}
