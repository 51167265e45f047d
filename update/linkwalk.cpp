#include "update/linkwalk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/common.h"

namespace {

int MayFollow(int folder, const char* name) {
  struct stat link, owner;
  if (fstatat(folder, name, &link, AT_SYMLINK_NOFOLLOW) != 0 || fstat(folder, &owner) != 0)
    return 0;
  const mode_t open = S_ISVTX | S_IWOTH;
  if ((owner.st_mode & open) != open) return 1;
  return link.st_uid == owner.st_uid || link.st_uid == geteuid();
}

// Opens the folder name in folder; walked is the path up to it, as messages
// show it. A link is followed, when ReadLink allows, from the folder it lies
// in; anything else is opened without following a link, so that a link put
// there after ReadLink looked is not followed either.
int OpenStep(int folder, const String& name, const String& walked, int& links,
             const char* shownFile) {
  String linked;
  int link = ReadLink(folder, name.Text(), linked, walked, shownFile);
  if (link < 0) return -2;
  if (link == 0)
    return openat(folder, name.Text(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (++links > kMostLinks) return -1;
  return OpenFolderAt(folder, linked, links, shownFile);
}

}  // namespace

int ReadLink(int folder, const char* name, String& linked, const String& shownLink,
             const char* shownFile) {
  char target[4096];
  ssize_t length = readlinkat(folder, name, target, sizeof target - 1);
  if (length < 0) return 0;
  if (!MayFollow(folder, name)) {
    Error(20, String("Cannot update '") + shownFile + "': '" + shownLink +
                  "' is a symbolic link of another user in a folder that anyone may write to, "
                  "so it is not followed. Give the name of the file it leads to.");
    return -1;
  }
  target[length] = '\0';
  linked = target;
  return 1;
}

int OpenFolderAt(int base, const String& path, int& links, const char* shownFile) {
  const char* text = path.Text();
  int fd = openat(base, text[0] == '/' ? "/" : ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  for (int at = 0; fd >= 0 && text[at];) {
    int end = at;
    while (text[end] && text[end] != '/') ++end;
    String name = path.Copy(at, end - at);
    String walked = path.Copy(0, end);
    at = text[end] ? end + 1 : end;
    if (name.Length() == 0 || name == ".") continue;
    int next = OpenStep(fd, name, walked, links, shownFile);
    close(fd);
    fd = next;
  }
  return fd;
}
