// Feeds files to a fuzz target's entry function without libFuzzer, so that the
// checked-in corpus runs as an ordinary test in any build.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    std::ifstream in(argv[i], std::ios::binary);
    if (!in) {
      std::fprintf(stderr, "cannot read %s\n", argv[i]);
      return 2;
    }
    std::stringstream bytes;
    bytes << in.rdbuf();
    std::string input = bytes.str();
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(input.data()), input.size());
  }
  std::fprintf(stderr, "%d inputs replayed\n", argc - 1);
  return argc > 1 ? 0 : 2;
}
