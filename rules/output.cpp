#include "rules/clauslst.h"

#include "app/common.h"
#include "rules/lookups.h"
#include "rules/substit.h"
#include "rules/writeerr.h"

namespace {

const char kSectionHead[] =
    "## Parseable filter file information for rereading into Gatewright.\n"
    "## DO NOT MODIFY THIS FILE BY HAND!\n";
const char kSectionEnd[] =
    "## End of parseable section ---------------------------------------------\n\n";

int Percent(int base, int span, long long n, long long total) {
  return base + static_cast<int>((n * span) / total);
}

// Moves the label set's texts, in their order, in front of the output list's
// current position, which stays where it is.
void Splice(DListtPrioritizedString& block, DListtPrioritizedString& output, int firstLabel,
            const String& setName) {
  while (tPrioritizedString* text = static_cast<tPrioritizedString*>(block.GetHead())) {
    text->Priority = firstLabel;
    text->ReplaceAll("${L}", setName.Text());
    output.ToCurrent(text);
    output.Next();
  }
}

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

int DListOfDListtClauseData::WriteTo(FILE* out, const char* shownName, const char* title,
                                     int firstLabel, DListtString& names, DListtString& values,
                                     tProgress& progress) {
  WriteSection(out, title);
  for (GotoHead(); Current(); Next()) {
    std::fprintf(out, "###~~~~%s\n", Current()->Name(nullptr).Text());
    int result = Current()->WriteParseable(out);
    if (result < 0) return result;
  }
  std::fputs(kSectionEnd, out);
  // Without any data set there is nothing to expand: the section alone is the
  // whole output.
  int count = Size();
  if (count == 0) return Flush(out, shownName);
  LookUpAhead(*this, progress);

  DListtPrioritizedString output;
  int result =
      static_cast<DListtClauseData*>((*this)[0])->WriteFilter(output, &progress, 0, 90 / count);
  if (result < 0) return result;

  output.GotoHead();
  while (output.Current() && output.Current()->Priority <= firstLabel) output.Next();
  for (int i = 1; i < count; ++i) {
    DListtClauseData* set = static_cast<DListtClauseData*>((*this)[i]);
    DListtPrioritizedString block;
    result = set->WriteFilter(block, &progress, i * 90 / count, (i + 1) * 90 / count);
    if (result < 0) return result;
    Splice(block, output, firstLabel, set->Name(nullptr));
  }

  tSubstitutions substitutions(names, values);
  long long total = output.Size();
  long long n = 0;
  for (output.GotoHead(); output.Current(); output.Next(), ++n) {
    result = progress.Report("Writing to File...", Percent(90, 10, n, total));
    if (result < 0) return result;
    tPrioritizedString* text = output.Current();
    substitutions.Apply(*text);
    size_t length = text->Length();
    if (length == 0) continue;
    if (std::fwrite(text->Text(), 1, length, out) < length) return WriteFailed(shownName);
  }
  return Flush(out, shownName);
}
