#ifndef RULEFORGE_TESTS_TESTUTIL_H
#define RULEFORGE_TESTS_TESTUTIL_H

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#ifdef RULEFORGE_TEST_DATA
// A file of tests/data.
inline std::string TestData(const char* name) {
  return std::string(RULEFORGE_TEST_DATA) + "/" + name;
}
#endif

inline std::string Slurp(const std::string& path) {
  std::stringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// A private file holding the given bytes, removed when the object goes. It is
// made in memory-backed /dev/shm where there is one: the fuzz targets make
// several for every input, which on a disk costs more than the run itself.
class TempFile {
 public:
  explicit TempFile(const std::string& bytes = "") {
    Path = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
    Path += "/ruleforge-test-XXXXXX";
    close(mkstemp(&Path[0]));
    std::ofstream(Path, std::ios::binary) << bytes;
  }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;
  ~TempFile() { std::remove(Path.c_str()); }
  const char* Name() const { return Path.c_str(); }

 private:
  std::string Path;
};

// Everything written to a stream by fill, read back as a string.
template <typename Fill>
std::string Captured(Fill fill) {
  TempFile file;
  FILE* f = std::fopen(file.Name(), "w");
  fill(f);
  std::fclose(f);
  return Slurp(file.Name());
}

#endif
