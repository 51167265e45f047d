#ifndef RULEFORGE_TESTS_TESTUTIL_H
#define RULEFORGE_TESTS_TESTUTIL_H

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

// A file of tests/data.
inline std::string TestData(const char* name) {
  return std::string(RULEFORGE_TEST_DATA) + "/" + name;
}

inline std::string Slurp(const std::string& path) {
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// A file in /tmp holding the given text, removed when the object goes.
class TempFile {
 public:
  explicit TempFile(const std::string& text) : Path("/tmp/ruleforge-test-XXXXXX") {
    close(mkstemp(&Path[0]));
    std::ofstream(Path) << text;
  }
  ~TempFile() { std::remove(Path.c_str()); }
  const char* Name() const { return Path.c_str(); }

 private:
  std::string Path;
};

// Everything written to a stream by fill, read back as a string.
template <typename Fill>
std::string Captured(Fill fill) {
  TempFile file("");
  FILE* f = std::fopen(file.Name(), "w");
  fill(f);
  std::fclose(f);
  return Slurp(file.Name());
}

#endif
