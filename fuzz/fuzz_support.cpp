#include "fuzz/fuzz_support.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

#include "app/common.h"
#include "app/filterd.h"

namespace {

[[noreturn]] void Fail(const char* what) {
  std::perror(what);
  std::abort();
}

// Memory-backed /dev/shm when TMPDIR does not say otherwise: on a disk, the
// files made and removed for every input cost more than the run itself.
void MakeTemp(char* path, size_t size) {
  const char* dir = std::getenv("TMPDIR");
  if (!dir || !*dir || std::strlen(dir) >= size - 32)
    dir = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
  std::snprintf(path, size, "%s/ruleforge-fuzz-XXXXXX", dir);
  int fd = mkstemp(path);
  if (fd < 0) Fail("mkstemp");
  close(fd);
}

long long RecordBound(tClauseData& record) {
  long long pairs = (record.Values0.Size() + 1LL) * (record.Values1.Size() + 1LL);
  long long texts = 0;
  for (int v = 0; v < 4; ++v)
    texts += record.Template->SingleTexts[v].Size() + record.Template->ValueTexts[v].Size() * pairs;
  return texts;
}

}  // namespace

TempFile::TempFile() { MakeTemp(path_, sizeof path_); }

TempFile::TempFile(const void* data, size_t size) {
  MakeTemp(path_, sizeof path_);
  FILE* f = std::fopen(path_, "wb");
  if (!f || std::fwrite(data, 1, size, f) != size || std::fclose(f) != 0) Fail(path_);
}

TempFile::~TempFile() { unlink(path_); }

std::string TempFile::Contents() const {
  std::stringstream text;
  text << std::ifstream(path_, std::ios::binary).rdbuf();
  return text.str();
}

FILE* NullOutput() {
  static FILE* null = std::fopen("/dev/null", "w");
  if (!null) Fail("/dev/null");
  return null;
}

long long OutputTextBound(tFilterData& doc) {
  long long texts = 0;
  for (int i = 0; i < doc.DataSets.Size(); ++i) {
    DListtClauseData* set = static_cast<DListtClauseData*>(doc.DataSets[i]);
    for (int t = 0; set->Templates && t < set->Templates->Size(); ++t) {
      tClauseTemplate* clause = static_cast<tClauseTemplate*>((*set->Templates)[t]);
      for (int v = 0; v < 4; ++v) texts += clause->SingleTexts[v].Size();
    }
    for (int r = 0; r < set->Size(); ++r) {
      tClauseData* record = static_cast<tClauseData*>((*set)[r]);
      texts += RecordBound(*record) + (record->Partner ? RecordBound(*record->Partner) : 0);
    }
  }
  return texts;
}

void ResetRun() { error = 0; }

void FuzzFail(const char* file, int line, const char* what) {
  std::fprintf(stderr, "%s:%d: property failed: %s\n", file, line, what);
  std::fflush(stderr);
  std::abort();
}
