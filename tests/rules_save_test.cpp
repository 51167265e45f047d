#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "app/common.h"
#include "app/filterd.h"
#include "output/save.h"
#include "testutil.h"

namespace {

// A scratch directory with a document whose output holds the line "new".
class SafeSave : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/ruleforge-save-XXXXXX";
    Dir = std::string(mkdtemp(pattern)) + "/";
    Put("t.tpl",
        "VRK Filter Template File\nT\n~~~~Main Rules\nF, '', '', '', '', '', ''\n~0, 1, S\nnew\n");
    error = 0;
    Document.reset(new tFilterData((Dir + "t.tpl").c_str(), 0));
  }
  void TearDown() override { std::system(("rm -rf " + Dir).c_str()); }
  void Put(const std::string& name, const std::string& text) { std::ofstream(Dir + name) << text; }
  std::string Dir;
  std::unique_ptr<tFilterData> Document;
};

// Write's result is what a caller of the library goes by. Failures the file
// system cannot give on demand come from the fault shim linked into the tests;
// the files they leave and the messages are checked end to end
// (tests/e2e/update-*).
TEST_F(SafeSave, FailedStepsReturnFailure) {
  struct Case {
    const char *file, *faults;
    int result, code;
  } cases[] = {
      {"nodir/out.flt", "", -1, 7},
      {"out.flt", "rename:out.flt:EPERM", -1, 10},
      {"out.flt", "fsync:mkrule~:EIO", -1, 8},
      {"out.flt", "remove:out.bak:EACCES", 0, 0},
      {"out.flt", "", 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.file) + " " + c.faults);
    Put("out.flt", "old\n");
    Put("out.bak", "older\n");
    error = 0;
    setenv("RULEFORGE_FAULTS", c.faults, 1);
    testing::internal::CaptureStderr();
    int result = SaveOutput(
        (Dir + c.file).c_str(), Document->DataSets,
        tOutputFrame{"T", 0, Document->SubstitutionNames, Document->SubstitutionValues}, 0);
    testing::internal::GetCapturedStderr();
    unsetenv("RULEFORGE_FAULTS");
    EXPECT_EQ(result, c.result);
    EXPECT_EQ(error, c.code);
  }
}

}  // namespace
