#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "app/common.h"
#include "app/filterd.h"
#include "testutil.h"

namespace {

int Exists(const std::string& path) {
  struct stat info;
  return stat(path.c_str(), &info) == 0;
}

void Put(const std::string& path, const std::string& text) { std::ofstream(path) << text; }

// A scratch directory with a document whose output is one fixed line.
class SafeSave : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/ruleforge-save-XXXXXX";
    Dir = mkdtemp(pattern);
    Put(Dir + "/t.tpl",
        "VRK Filter Template File\nT\n~~~~Main Rules\nF, '', '', '', '', '', ''\n~0, 1, S\nnew\n");
    error = 0;
    Document = new tFilterData((Dir + "/t.tpl").c_str(), 0);
  }
  void TearDown() override {
    delete Document;
    std::system(("rm -rf " + Dir).c_str());
  }
  int Save(const std::string& name) {
    testing::internal::CaptureStderr();
    int result = Document->WriteData((Dir + "/" + name).c_str());
    Messages = testing::internal::GetCapturedStderr();
    return result;
  }
  std::string Dir, Messages;
  tFilterData* Document = nullptr;
};

TEST_F(SafeSave, KeepsThePreviousVersionAsBackup) {
  struct Case {
    const char* name;
    const char* backup;
  } cases[] = {
      {"out.flt", "out.bak"}, {"out", "out.bak"}, {"dir.d/out", "dir.d/out.bak"}, {"a.b.c", "a.b.bak"},
  };
  mkdir((Dir + "/dir.d").c_str(), 0755);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::string target = Dir + "/" + c.name, backup = Dir + "/" + c.backup;
    Put(target, "old\n");
    Put(backup, "older\n");
    Save(c.name);
    EXPECT_EQ(Messages, "");
    EXPECT_EQ(error, 0);
    EXPECT_EQ(Slurp(backup), "old\n");
    EXPECT_NE(Slurp(target).find("\nnew\n"), std::string::npos);
    EXPECT_FALSE(Exists(Dir + "/mkrule~.0"));
  }
}

TEST_F(SafeSave, FirstSaveNeedsNoPreviousFile) {
  Save("fresh.flt");
  EXPECT_EQ(error, 0);
  EXPECT_TRUE(Exists(Dir + "/fresh.flt"));
  EXPECT_FALSE(Exists(Dir + "/fresh.bak"));
}

TEST_F(SafeSave, MissingDirectoryIsError7) {
  EXPECT_EQ(Save("nodir/out.flt"), 0);
  EXPECT_EQ(error, 7);
  EXPECT_EQ(Messages, "ERROR(7): Could not open temporary file '" + Dir +
                          "/nodir/out.flt' for writing!\n");
}

TEST_F(SafeSave, BackupInTheWayIsError9AndLosesNothing) {
  Put(Dir + "/out.flt", "old\n");
  mkdir((Dir + "/out.bak").c_str(), 0755);
  Put(Dir + "/out.bak/keep", "x");
  Save("out.flt");
  EXPECT_EQ(error, 9);
  EXPECT_EQ(Messages, "ERROR(9): Error renaming original '" + Dir + "/out.flt' to '" + Dir +
                          "/out.bak'!\n");
  EXPECT_EQ(Slurp(Dir + "/out.flt"), "old\n");
  EXPECT_NE(Slurp(Dir + "/mkrule~.0").find("\nnew\n"), std::string::npos);
}

TEST_F(SafeSave, ExistingTemporaryFilesAreNotOverwritten) {
  Put(Dir + "/mkrule~.0", "earlier run\n");
  Save("out.flt");
  EXPECT_EQ(error, 0);
  EXPECT_EQ(Slurp(Dir + "/mkrule~.0"), "earlier run\n");
  EXPECT_FALSE(Exists(Dir + "/mkrule~.1"));
}

// A sink that answers negatively stops the output before the first text.
class tStop : public tProgress {
  int Report(const char*, int) override { return -1; }
};

TEST_F(SafeSave, StoppingSinkEndsTheOutputAfterTheSection) {
  DListtString names, values;
  tStop stop;
  int result = 0;
  std::string out = Captured([&](FILE* f) {
    result = Document->DataSets.WriteTo(f, "x", "T", 0, names, values, stop);
  });
  EXPECT_EQ(result, -1);
  EXPECT_EQ(out.substr(out.size() - 2), "\n\n");
  EXPECT_EQ(out.find("new"), std::string::npos);
}

}  // namespace
