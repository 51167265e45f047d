// Feeds files to a fuzz target's entry function without libFuzzer, so that the
// checked-in corpus runs as an ordinary test in any build. Each argument is a
// file or a folder whose files are fed in name order.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <string>
#include <sys/stat.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

bool ReadWhole(const std::string& path, std::string& bytes) {
  FILE* f = std::fopen(path.c_str(), "rb");
  if (!f) return false;
  char buffer[4096];
  size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, f)) > 0) bytes.append(buffer, n);
  bool ok = !std::ferror(f);
  std::fclose(f);
  return ok;
}

void Collect(const std::string& path, std::vector<std::string>& files) {
  struct stat info;
  if (stat(path.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) {
    files.push_back(path);
    return;
  }
  std::vector<std::string> names;
  if (DIR* dir = opendir(path.c_str())) {
    while (dirent* entry = readdir(dir)) {
      std::string name = entry->d_name;
      if (name != "." && name != "..") names.push_back(path + "/" + name);
    }
    closedir(dir);
  }
  std::sort(names.begin(), names.end());
  files.insert(files.end(), names.begin(), names.end());
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> files;
  for (int i = 1; i < argc; ++i) Collect(argv[i], files);
  if (files.empty()) {
    std::fprintf(stderr, "usage: %s <file or folder>...\n", argv[0]);
    return 2;
  }
  for (const std::string& file : files) {
    std::string bytes;
    if (!ReadWhole(file, bytes)) {
      std::fprintf(stderr, "cannot read %s\n", file.c_str());
      return 2;
    }
    std::fprintf(stderr, "replaying %s\n", file.c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
  }
  std::fprintf(stderr, "%zu inputs replayed\n", files.size());
  return 0;
}
