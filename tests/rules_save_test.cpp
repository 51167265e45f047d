#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <memory>
#include <string>

#include "app/common.h"
#include "app/filterd.h"
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
  std::string Get(const std::string& name) { return Slurp(Dir + name); }
  bool Exists(const std::string& name) { return access((Dir + name).c_str(), F_OK) == 0; }
  // Saves to the named file of the directory; the messages go to Messages.
  int Save(const std::string& name) {
    testing::internal::CaptureStderr();
    int result = Document->WriteData((Dir + name).c_str());
    Messages = testing::internal::GetCapturedStderr();
    return result;
  }
  std::string Dir, Messages;
  std::unique_ptr<tFilterData> Document;
};

TEST_F(SafeSave, KeepsThePreviousVersionAsBackup) {
  struct Case {
    const char* name;
    const char* backup;
  } cases[] = {
      {"out.flt", "out.bak"},
      {"out", "out.bak"},
      {"dir.d/out", "dir.d/out.bak"},
      {"a.b.c", "a.b.bak"},
  };
  mkdir((Dir + "dir.d").c_str(), 0755);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Put(c.name, "old\n");
    Put(c.backup, "older\n");
    Save(c.name);
    EXPECT_EQ(Messages, "");
    EXPECT_EQ(error, 0);
    EXPECT_EQ(Get(c.backup), "old\n");
    EXPECT_NE(Get(c.name).find("\nnew\n"), std::string::npos);
    EXPECT_FALSE(Exists("mkrule~.0"));
  }
  Save("fresh.flt");  // nothing to keep
  EXPECT_EQ(error, 0);
  EXPECT_TRUE(Exists("fresh.flt"));
  EXPECT_FALSE(Exists("fresh.bak"));
}

TEST_F(SafeSave, MissingDirectoryIsError7) {
  EXPECT_EQ(Save("nodir/out.flt"), 0);
  EXPECT_EQ(error, 7);
  EXPECT_EQ(Messages,
            "ERROR(7): Could not open temporary file '" + Dir + "nodir/out.flt' for writing!\n");
}

TEST_F(SafeSave, BackupInTheWayIsError9AndLosesNothing) {
  Put("out.flt", "old\n");
  mkdir((Dir + "out.bak").c_str(), 0755);
  Put("out.bak/keep", "x");
  Save("out.flt");
  EXPECT_EQ(error, 9);
  EXPECT_EQ(Messages,
            "ERROR(9): Error renaming original '" + Dir + "out.flt' to '" + Dir + "out.bak'!\n");
  EXPECT_EQ(Get("out.flt"), "old\n");
  EXPECT_NE(Get("mkrule~.0").find("\nnew\n"), std::string::npos);
}

// Write's result is what a caller of the library goes by. Failures the file
// system cannot give on demand come from the fault shim linked into the tests;
// the files they leave are checked end to end (tests/e2e/update-*).
TEST_F(SafeSave, FailedStepsReturnFailure) {
  struct Case {
    const char* faults;
    int result, code;
  } cases[] = {
      {"rename:out.flt:EPERM", -1, 10},
      {"fsync:mkrule~:EIO", -1, 8},
      {"remove:out.bak:EACCES", 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.faults);
    Put("out.flt", "old\n");
    Put("out.bak", "older\n");
    error = 0;
    setenv("RULEFORGE_FAULTS", c.faults, 1);
    testing::internal::CaptureStderr();
    int result =
        Document->DataSets.Write((Dir + "out.flt").c_str(), "T", 0, Document->SubstitutionNames,
                                 Document->SubstitutionValues);
    testing::internal::GetCapturedStderr();
    unsetenv("RULEFORGE_FAULTS");
    EXPECT_EQ(result, c.result);
    EXPECT_EQ(error, c.code);
  }
}

TEST_F(SafeSave, ExistingTemporaryFilesAreNotOverwritten) {
  Put("mkrule~.0", "earlier run\n");
  Save("out.flt");
  EXPECT_EQ(error, 0);
  EXPECT_EQ(Get("mkrule~.0"), "earlier run\n");
  EXPECT_FALSE(Exists("mkrule~.1"));
}

}  // namespace
