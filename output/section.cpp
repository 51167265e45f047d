#include "output/section.h"

#include "app/common.h"

const char ParseableSectionHead[] =
    "## Parseable filter file information for rereading into Gatewright.\n"
    "## DO NOT MODIFY THIS FILE BY HAND!\n";
const char ParseableSectionEnd[] =
    "## End of parseable section ---------------------------------------------\n\n";

void WriteSectionHead(FILE* out, const char* title) {
  std::fputs(ParseableSectionHead, out);
  std::fprintf(out, "###%s%s%s%s\n", DataFileBanner.Text(), ProgramName.Text(), version.Text(),
               AppVersion.Text());
  std::fprintf(out, "###%s%s\n", DataFileTemplateHeader.Text(), title);
}

int WriteSection(FILE* out, const char* title, DListOfDListtClauseData& sets) {
  WriteSectionHead(out, title);
  for (DListtClauseData* set : Walk<DListtClauseData>(sets)) {
    std::fprintf(out, "###~~~~%s\n", set->Name(nullptr).Text());
    int result = set->WriteParseable(out);
    if (result < 0) return result;
  }
  std::fputs(ParseableSectionEnd, out);
  return 0;
}
