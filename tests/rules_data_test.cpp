#include <gtest/gtest.h>

#include <string>

#include "app/common.h"
#include "app/filterd.h"
#include "output/output.h"
#include "rules/clauslst.h"
#include "testutil.h"

namespace {

const char kEnd[] = "## End of parseable section ---------------------------------------------\n\n";

// Records the reports, each as "text@percent "; answers -1 from the report
// numbered StopFrom (counted from 0) on, or never when it is negative.
class tRecordingProgress : public tProgress {
 public:
  explicit tRecordingProgress(int stopFrom) : StopFrom(stopFrom) {}
  int Report(const char* text, int percent) override {
    Reports += std::string(text) + "@" + std::to_string(percent) + " ";
    return StopFrom >= 0 && Count++ >= StopFrom ? -1 : 0;
  }
  int StopFrom, Count = 0;
  std::string Reports;
};

// A stopped output keeps the section and ends with the last text written.
TEST(DataSets, ProgressPercentagesAndStop) {
  const std::string expanding = "(Main) : A@0 (Main) : B@22 (Main) : C@45 (Main) : D@67 ";
  const std::string writing = "Writing to File...@90 Writing to File...@93 ";
  struct Case {
    int stopFrom;
    std::string reports, texts;
    int result;
  } cases[] = {
      {-1, expanding + writing + "Writing to File...@96 ", "fixed\nfixed three\na\n", 0},
      {0, "(Main) : A@0 ", "", -1},
      {1, "(Main) : A@0 (Main) : B@22 ", "", -1},
      {5, expanding + writing, "fixed\n", -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.stopFrom);
    error = 0;
    tFilterData document(TestData("four-clauses.tpl").c_str(), 0);
    DListtClauseData* main = static_cast<DListtClauseData*>(document.DataSets[0]);
    for (tClauseData* record : Walk<tClauseData>(*main)) record->VariantStates[0] = 1;
    tRecordingProgress progress(c.stopFrom);
    int result = 0;
    std::string out = Captured([&](FILE* f) {
      result = WriteOutput(
          f, "", document.DataSets,
          tOutputFrame{"", 0, document.SubstitutionNames, document.SubstitutionValues}, progress);
    });
    EXPECT_EQ(progress.Reports, c.reports);
    EXPECT_EQ(out.substr(out.find(kEnd) + sizeof kEnd - 1), c.texts);
    EXPECT_EQ(result, c.result);
  }
}

// A main template and the first record of a pair delete their partner; deleting
// the partner first only unhooks it. The sanitizer build catches a double free.
TEST(Companions, OnlyTheMainTemplateAndTheFirstRecordOwnTheirPartner) {
  TempFile text("A on \"\" \"\" \"\" \"\" \"\"\n~0, 1, S\na\n~~\nB on \"\" \"\" \"\" \"\" \"\"\n");
  tFilterTemplateFile file(text.Name());
  tClauseTemplate* main = new tClauseTemplate;
  main->Read(file);
  ASSERT_NE(main->Partner, nullptr);
  EXPECT_EQ(main->Partner->Name, "B");
  delete main->Partner;
  EXPECT_EQ(main->Partner, nullptr);
  delete main;
  tClauseData *first = new tClauseData, *second = new tClauseData;
  first->AdoptCompanion(second);
  delete second;
  EXPECT_EQ(first->Partner, nullptr);
  delete first;
  first = new tClauseData;
  first->AdoptCompanion(new tClauseData);
  delete first;
}

}  // namespace
