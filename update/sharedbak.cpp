#include "update/sharedbak.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstring>

#include "app/common.h"
#include "output/savename.h"

namespace {

// Whether the file named name in folder begins, within its first lines, with a
// data line that is the banner every parseable section opens with. Only the
// start is read, and nothing that is not a regular file is opened.
int HoldsFilterData(int folder, const char* name) {
  struct stat status;
  if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(status.st_mode))
    return 0;
  int fd = openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return 0;
  char head[8192];
  ssize_t length = pread(fd, head, sizeof head - 1, 0);
  close(fd);
  if (length <= 0) return 0;
  head[length] = '\0';
  String banner = String("###") + DataFileBanner;
  for (char* line = head; line && *line; line = std::strchr(line, '\n')) {
    if (*line == '\n') ++line;
    if (std::strncmp(line, "###", 3) == 0)
      return std::strncmp(line, banner.Text(), banner.Length()) == 0;
  }
  return 0;
}

}  // namespace

int BackupIsOwn(const tUpdateTarget& target) {
  int fd = openat(target.Folder(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  DIR* folder = fd >= 0 ? fdopendir(fd) : nullptr;
  if (!folder) {
    if (fd >= 0) close(fd);
    return 1;
  }
  String backup = BackupName(target.Base());
  String other;
  while (struct dirent* entry = readdir(folder)) {
    String name(entry->d_name);
    if (name == target.Base() || name == backup || BackupName(name) != backup) continue;
    if (HoldsFilterData(target.Folder(), entry->d_name)) {
      other = name;
      break;
    }
  }
  closedir(folder);
  if (other.Length() == 0) return 1;
  String folderShown = target.ShownFolder();
  Error(16, String("Cannot update '") + target.Name() + "': '" + folderShown + other +
                "' beside it holds filter data too, and both would keep their backup in '" +
                folderShown + backup + "'. Rename one of them first.");
  return 0;
}
