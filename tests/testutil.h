#ifndef RULEFORGE_TESTS_TESTUTIL_H
#define RULEFORGE_TESTS_TESTUTIL_H

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

// A file of tests/data.
inline std::string TestData(const char* name) { return std::string(RULEFORGE_TEST_DATA) + "/" + name; }

inline std::string Slurp(const std::string& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// A file in /tmp holding the given text, removed when the object goes.
class TempFile {
 public:
  explicit TempFile(const std::string& text) {
    char pattern[] = "/tmp/ruleforge-test-XXXXXX";
    int fd = mkstemp(pattern);
    Path = pattern;
    FILE* f = fdopen(fd, "w");
    std::fwrite(text.data(), 1, text.size(), f);
    std::fclose(f);
  }
  ~TempFile() { std::remove(Path.c_str()); }
  const char* Name() const { return Path.c_str(); }

 private:
  std::string Path;
};

// Everything written to a stream by fill, read back as a string.
template <typename Fill>
std::string Captured(Fill fill) {
  FILE* f = std::tmpfile();
  fill(f);
  std::fflush(f);
  std::string text;
  std::rewind(f);
  for (int c; (c = std::fgetc(f)) != EOF;) text += static_cast<char>(c);
  std::fclose(f);
  return text;
}

#endif
