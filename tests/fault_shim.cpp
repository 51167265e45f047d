// Makes chosen file operations fail, for tests of the save's failure paths
// that the file system cannot be made to produce on demand. Loaded with
// LD_PRELOAD (tests/run_case.sh, a case's "faults" file) or linked into the
// unit tests. RULEFORGE_FAULTS lists faults separated by ";", each
// "call:text:ERRNO": every call of that function on a path containing text
// fails with that error. rename is matched by its new name, remove by its
// name, fsync and fclose by the path of the descriptor; fclose closes the
// stream all the same, as a close that reports a late write error does.
// pthread_create has no path: "pthread_create::EAGAIN" makes every thread fail
// to start, as where a process may not have more threads.
#include <dlfcn.h>
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// The error to fail call on path with, or 0.
int Fault(const char* call, const char* path) {
  const char* wanted = std::getenv("RULEFORGE_FAULTS");
  if (!wanted || !path) return 0;
  static const struct {
    const char* name;
    int value;
  } kErrors[] = {
      {"EACCES", EACCES}, {"EAGAIN", EAGAIN}, {"EIO", EIO}, {"ENOSPC", ENOSPC}, {"EPERM", EPERM}};
  std::string faults(wanted);
  for (size_t start = 0; start < faults.size();) {
    size_t end = faults.find(';', start);
    if (end == std::string::npos) end = faults.size();
    std::string fault = faults.substr(start, end - start);
    start = end + 1;
    size_t first = fault.find(':'), last = fault.rfind(':');
    if (first == last || fault.compare(0, first, call) != 0) continue;
    if (!std::strstr(path, fault.substr(first + 1, last - first - 1).c_str())) continue;
    for (const auto& error : kErrors) {
      if (fault.compare(last + 1, std::string::npos, error.name) == 0) return error.value;
    }
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

extern "C" int remove(const char* name) {
  if (int fault = Fault("remove", name)) return errno = fault, -1;
  return Next<int (*)(const char*)>("remove")(name);
}

extern "C" int fsync(int fd) {
  if (int fault = Fault("fsync", PathOf(fd).c_str())) return errno = fault, -1;
  return Next<int (*)(int)>("fsync")(fd);
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
