#include "rules/clauslst.h"

#include "app/common.h"
#include "rules/lookups.h"
#include "rules/outstage.h"
#include "rules/writeerr.h"

namespace {

const char kSectionHead[] =
    "## Parseable filter file information for rereading into Gatewright.\n"
    "## DO NOT MODIFY THIS FILE BY HAND!\n";
const char kSectionEnd[] =
    "## End of parseable section ---------------------------------------------\n\n";

// Output that fits in the stdio buffer only fails when it is flushed, so the
// flush counts as part of the writing, also when the filter text is empty and
// the buffer holds only the parseable section.
int Flush(FILE* out, const char* shownName) {
  if (std::fflush(out) != 0 || std::ferror(out)) return WriteFailed(shownName);
  return 0;
}

}  // namespace

void DListOfDListtClauseData::WriteSection(FILE* out, const char* title) {
  std::fputs(kSectionHead, out);
  std::fprintf(out, "###%s%s%s%s\n", DataFileBanner.Text(), ProgramName.Text(), version.Text(),
               AppVersion.Text());
  std::fprintf(out, "###%s%s\n", DataFileTemplateHeader.Text(), title);
}

int DListOfDListtClauseData::WriteTo(FILE* out, const char* shownName, const tOutputFrame& frame,
                                     tProgress& progress) {
  WriteSection(out, frame.Title);
  for (DListtClauseData* set : Walk<DListtClauseData>(*this)) {
    std::fprintf(out, "###~~~~%s\n", set->Name(nullptr).Text());
    int result = set->WriteParseable(out);
    if (result < 0) return result;
  }
  std::fputs(kSectionEnd, out);
  // Without any data set there is nothing to expand: the section alone is the
  // whole output.
  if (Size() == 0) return Flush(out, shownName);
  LookUpAhead(*this, progress);

  tOutputStage stage(frame, progress);
  int result = stage.Expand(*this);
  if (result >= 0) result = stage.Write(out, shownName);
  if (result < 0) return result;
  return Flush(out, shownName);
}
