#include <gtest/gtest.h>

#include <string>

#include "app/filterd.h"
#include "edit/model.h"
#include "edit/names.h"
#include "edit/preview.h"
#include "testutil.h"

namespace {

// Entries "<prefix>0" to "<prefix><count - 1>", typed as one line.
std::string Typed(const char* prefix, int count) {
  std::string typed;
  for (int i = 0; i < count; ++i) typed += (i ? "," : "") + std::string(prefix) + std::to_string(i);
  return typed;
}

// The preview holds the first lines exactly, however long the lists, and
// counts the lines it leaves out: a long second list must not bring a later
// first entry forward, nor a long first list be cut in its count. It holds
// no more than the first 500 lines a text makes.
TEST(EditPreview, HoldsTheFirstLinesAndCountsTheRest) {
  struct {
    int left, right;
    long long total;
    size_t held;
    int at;
    const char* line;
  } cases[] = {
      {2, 3, 1 + 6 + 2, 9, 1, "pair a0 b0"},
      {2, 3, 1 + 6 + 2, 9, 6, "pair a1 b2"},
      {2, 3, 1 + 6 + 2, 9, 8, "left a1"},
      {2, 600, 1 + 1200 + 2, 1 + 500 + 2, 500, "pair a0 b499"},
      {600, 1, 1 + 600 + 600, 1 + 500 + 500, 500, "pair a499 b0"},
      {600, 1, 1 + 600 + 600, 1 + 500 + 500, 501, "left a0"},
      {1, 0, 1 + 0 + 1, 2, 1, "left a0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.left) + " x " + std::to_string(c.right));
    tFilterData document(TestData("edit-preview.tpl").c_str(), 0);
    tEditModel model(document);
    String why;
    DListtClauseData& main = *model.Set("(Main)");
    tClauseData& record = *FindClause(main, "Pairs", why);
    ASSERT_EQ(model.SetVariant(record, 0, 1, why), 0);
    ASSERT_EQ(model.InsertEntries(record, 0, 0, Typed("a", c.left).c_str(), why), 0);
    if (c.right > 0) {
      ASSERT_EQ(model.InsertEntries(record, 1, 0, Typed("b", c.right).c_str(), why), 0);
    }
    tPreview preview = PreviewLines(document, main, record);
    EXPECT_EQ(static_cast<long long>(preview.Lines.size()) + preview.More, c.total);
    EXPECT_EQ(preview.Lines.size(), c.held);
    EXPECT_EQ(preview.Lines.front(), "head 23");
    ASSERT_GT(preview.Lines.size(), static_cast<size_t>(c.at));
    EXPECT_EQ(preview.Lines[c.at], c.line);
  }
}

TEST(EditPreview, FillsTheLabelNameOfALabelSet) {
  tFilterData document(TestData("edit-preview.tpl").c_str(), 0);
  tEditModel model(document);
  String why;
  ASSERT_EQ(model.AddSet("lab1", why), 0);
  DListtClauseData& set = *model.Set("lab1");
  tClauseData& record = *FindClause(set, "Site", why);
  ASSERT_EQ(model.SetVariant(record, 0, 1, why), 0);
  ASSERT_EQ(model.InsertEntries(record, 0, 0, "m1,m2", why), 0);
  tPreview preview = PreviewLines(document, set, record);
  EXPECT_EQ(preview.Lines, (std::vector<std::string>{"site lab1 m1", "site lab1 m2"}));
  EXPECT_EQ(preview.More, 0);
}

}  // namespace
