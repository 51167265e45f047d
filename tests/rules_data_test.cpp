#include <gtest/gtest.h>

#include "rules/clauslst.h"
#include "testutil.h"

namespace {

// A main template and the first record of a pair delete their partner; deleting
// the partner first only unhooks it. The sanitizer build catches a double free.
TEST(Companions, OnlyTheMainTemplateAndTheFirstRecordOwnTheirPartner) {
  TempFile text("A on \"\" \"\" \"\" \"\" \"\"\n~0, 1, S\na\n~~\nB on \"\" \"\" \"\" \"\" \"\"\n");
  tFilterTemplateFile file(text.Name());
  tClauseTemplate* main = new tClauseTemplate;
  EXPECT_EQ(main->Read(file), 0);
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
