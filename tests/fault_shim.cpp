// Makes chosen file operations fail, or the run end, at chosen moments, for
// tests of the save's failure paths and races that the file system cannot be
// made to produce on demand. Loaded with LD_PRELOAD (tests/run_case.sh, a
// case's "faults" file) or linked into the unit tests. RULEFORGE_FAULTS lists
// faults separated by ";", each "call:text:ACTION": every call of that
// function on a path containing text (or ending in it, when text ends in "$")
// does ACTION; "ACTION@N" does it at the Nth such call only. ACTION is an errno name (the call
// fails with it), a signal name (the signal is raised before the call), "outofmemory" (the
// program's new-handler runs before the call, as when an allocation there failed), or, for
// readlinkat only, "relink=TARGET" (once the link is read, it is switched to point to TARGET, as
// another user switching it would). openat_tmpfile is openat asked for an unnamed file (O_TMPFILE),
// matched by the folder's name; openat is any other, matched by its name. rename, renameat and
// linkat are matched by their new name, remove and unlinkat by their name, memfd_create by its
// name, fstat, fsync, fchmod, fchown, fclose and fwrite by the path of the descriptor (an unnamed
// file's path ends in "(deleted)"); fclose closes the stream all the same, as a close that reports
// a late write error does. pthread_create has no path: "pthread_create::EAGAIN" makes every thread
// fail to start, as where a process may not have more threads.
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <new>
#include <string>

namespace {

// The action of the first fault for call on path; empty when there is none.
std::string Action(const char* call, const char* path) {
  const char* wanted = std::getenv("RULEFORGE_FAULTS");
  if (!wanted || !path) return "";
  std::string faults(wanted), text(path);
  for (size_t start = 0; start < faults.size();) {
    size_t end = faults.find(';', start);
    if (end == std::string::npos) end = faults.size();
    std::string fault = faults.substr(start, end - start);
    start = end + 1;
    size_t first = fault.find(':'), last = fault.rfind(':');
    if (first == last || fault.compare(0, first, call) != 0) continue;
    std::string wantedPath = fault.substr(first + 1, last - first - 1);
    int atEnd = !wantedPath.empty() && wantedPath.back() == '$';
    if (atEnd) wantedPath.pop_back();
    size_t at = atEnd ? text.rfind(wantedPath) : text.find(wantedPath);
    if (at == std::string::npos || (atEnd && at + wantedPath.size() != text.size())) continue;
    return fault.substr(last + 1);
  }
  return "";
}

// Raises the signal an action names; otherwise returns the error it names, or 0.
int Fault(const char* call, const char* path) {
  static const struct {
    const char* name;
    int value;
  } kErrors[] = {{"EACCES", EACCES},         {"EAGAIN", EAGAIN}, {"EIO", EIO},
                 {"ENOSPC", ENOSPC},         {"EPERM", EPERM},   {"EXDEV", EXDEV},
                 {"EOPNOTSUPP", EOPNOTSUPP}, {"ENOMEM", ENOMEM}},
    kSignals[] = {
        {"SIGINT", SIGINT}, {"SIGTERM", SIGTERM}, {"SIGHUP", SIGHUP}, {"SIGKILL", SIGKILL}};
  std::string action = Action(call, path);
  size_t at = action.find('@');
  if (at != std::string::npos) {
    static std::map<std::string, int> calls;
    if (++calls[call + action] != std::atoi(action.c_str() + at + 1)) return 0;
    action.erase(at);
  }
  std::new_handler handler = std::get_new_handler();
  if (action == "outofmemory" && handler) handler();
  for (const auto& signal : kSignals) {
    if (action == signal.name) raise(signal.value);
  }
  for (const auto& error : kErrors) {
    if (action == error.name) return error.value;
  }
  return 0;
}

std::string PathOf(int fd) {
  char link[64], path[4096];
  std::snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
  ssize_t length = readlink(link, path, sizeof path - 1);
  return std::string(path, length > 0 ? length : 0);
}

template <typename Function>
Function Next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" int rename(const char* from, const char* to) {
  if (int fault = Fault("rename", to)) return errno = fault, -1;
  return Next<int (*)(const char*, const char*)>("rename")(from, to);
}

extern "C" int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
  if (int fault = Fault("renameat", to)) return errno = fault, -1;
  return Next<int (*)(int, const char*, int, const char*)>("renameat")(fromFolder, from, toFolder,
                                                                       to);
}

extern "C" int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
  if (int fault = Fault("linkat", to)) return errno = fault, -1;
  return Next<int (*)(int, const char*, int, const char*, int)>("linkat")(fromFolder, from,
                                                                          toFolder, to, flags);
}

extern "C" int remove(const char* name) {
  if (int fault = Fault("remove", name)) return errno = fault, -1;
  return Next<int (*)(const char*)>("remove")(name);
}

extern "C" int unlinkat(int folder, const char* name, int flags) {
  if (int fault = Fault("unlinkat", name)) return errno = fault, -1;
  return Next<int (*)(int, const char*, int)>("unlinkat")(folder, name, flags);
}

extern "C" ssize_t readlinkat(int folder, const char* name, char* buffer, size_t size) {
  ssize_t length =
      Next<ssize_t (*)(int, const char*, char*, size_t)>("readlinkat")(folder, name, buffer, size);
  std::string action = Action("readlinkat", name);
  static int switched = 0;
  if (length >= 0 && action.compare(0, 7, "relink=") == 0 && !switched) {
    switched = 1;
    int saved = errno;
    symlinkat(action.c_str() + 7, folder, ".relinked");
    Next<int (*)(int, const char*, int, const char*)>("renameat")(folder, ".relinked", folder,
                                                                  name);
    errno = saved;
  }
  return length;
}

extern "C" int openat(int folder, const char* name, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  mode_t mode = (flags & O_CREAT) || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  if ((flags & O_TMPFILE) == O_TMPFILE) {
    if (int fault = Fault("openat_tmpfile", name)) return errno = fault, -1;
  } else if (int fault = Fault("openat", name)) {
    return errno = fault, -1;
  }
  return Next<int (*)(int, const char*, int, ...)>("openat")(folder, name, flags, mode);
}

extern "C" int fsync(int fd) {
  if (int fault = Fault("fsync", PathOf(fd).c_str())) return errno = fault, -1;
  return Next<int (*)(int)>("fsync")(fd);
}

extern "C" int fstat(int fd, struct stat* status) {
  if (int fault = Fault("fstat", PathOf(fd).c_str())) return errno = fault, -1;
  return Next<int (*)(int, struct stat*)>("fstat")(fd, status);
}

extern "C" int memfd_create(const char* name, unsigned flags) {
  if (int fault = Fault("memfd_create", name)) return errno = fault, -1;
  return Next<int (*)(const char*, unsigned)>("memfd_create")(name, flags);
}

extern "C" int fchmod(int fd, mode_t mode) {
  if (int fault = Fault("fchmod", PathOf(fd).c_str())) return errno = fault, -1;
  return Next<int (*)(int, mode_t)>("fchmod")(fd, mode);
}

extern "C" int fchown(int fd, uid_t owner, gid_t group) {
  if (int fault = Fault("fchown", PathOf(fd).c_str())) return errno = fault, -1;
  return Next<int (*)(int, uid_t, gid_t)>("fchown")(fd, owner, group);
}

extern "C" size_t fwrite(const void* data, size_t size, size_t count, FILE* stream) {
  // Every write of the output comes here: the path is looked up only when
  // faults are asked for.
  if (std::getenv("RULEFORGE_FAULTS")) {
    if (int fault = Fault("fwrite", PathOf(fileno(stream)).c_str())) return errno = fault, 0;
  }
  return Next<size_t (*)(const void*, size_t, size_t, FILE*)>("fwrite")(data, size, count, stream);
}

extern "C" int fclose(FILE* stream) {
  int fault = Fault("fclose", PathOf(fileno(stream)).c_str());
  int result = Next<int (*)(FILE*)>("fclose")(stream);
  if (fault) return errno = fault, EOF;
  return result;
}

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*start)(void*), void* argument) {
  if (int fault = Fault("pthread_create", "")) return fault;
  return Next<int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*)>(
      "pthread_create")(thread, attributes, start, argument);
}
