#include "app/about.h"

#include <cstdio>
#include <cstring>

#include "app/common.h"
#include "output/writeerr.h"

namespace {

// Whether word is an option that takes the next word as its value: its
// spelling in the table names a value after a blank.
int TakesValue(const tProgramHelp& program, const char* word) {
  for (int i = 0; i < program.OptionCount; ++i) {
    const char* spelling = program.Options[i].Spelling;
    const char* blank = std::strchr(spelling, ' ');
    if (blank && std::strncmp(spelling, word, blank - spelling) == 0 &&
        word[blank - spelling] == '\0')
      return 1;
  }
  return 0;
}

void PrintHelp(const tProgramHelp& program) {
  for (int i = 0; i < program.UsageCount; ++i)
    std::printf("%s %s %s\n", i == 0 ? "Usage:" : "      ", program.Name, program.Usages[i]);
  std::printf("\nOptions:\n");
  for (int i = 0; i < program.OptionCount; ++i)
    std::printf("  %-16s  %s\n", program.Options[i].Spelling, program.Options[i].Text);
  std::printf("  %-16s  %s\n  %-16s  %s\n", "--help", "print this help and exit", "--version",
              "print the program's name and version and exit");
}

}  // namespace

int AnswerHelpOrVersion(int argc, char** argv, const tProgramHelp& program) {
  int asked = 0;
  for (int i = 1; i < argc && !asked; ++i) {
    if (std::strcmp(argv[i], "--help") == 0) {
      PrintHelp(program);
      asked = 1;
    } else if (std::strcmp(argv[i], "--version") == 0) {
      std::printf("%s %s\n", program.Name, AppVersion.Text());
      asked = 1;
    } else if (TakesValue(program, argv[i])) {
      ++i;
    }
  }
  if (!asked) return -1;
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
    WriteFailed("");
    return 8;
  }
  return 0;
}
