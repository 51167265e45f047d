#include <gtest/gtest.h>

#include "resolve/entry.h"
#include "rules/clause.h"

namespace {

// What a value entry becomes in a resolved place: the second place's entries
// lose blanks, tabs and line ends first; "*" alone is any address and never
// looked up; other wildcards become zeros.
TEST(EntryToResolve, FormAndCase) {
  struct Case {
    const char* entry;
    int strip;
    tEntryForm kind;
    const char* form;
  } cases[] = {
      {"", 0, EntryNone, ""},
      {" \t", 1, EntryNone, ""},
      {" \t", 0, EntryLookedUp, " \t"},
      {"*", 0, EntryAnyAddress, "0;0"},
      {" * ", 1, EntryAnyAddress, "0;0"},
      {" * ", 0, EntryLookedUp, " 0 "},
      {"10.*.*.*;8", 0, EntryLookedUp, "10.0.0.0;8"},
      {"**", 0, EntryLookedUp, "00"},
      {"host.example", 1, EntryLookedUp, "host.example"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.entry);
    String form("stale");
    EXPECT_EQ(EntryToResolve(c.entry, c.strip, form), c.kind);
    EXPECT_STREQ(form.Text(), c.form);
  }
}

// The field a variant's state is written in: one per labelled variant in
// variant order, after an empty first field when variant 0 is unlabelled.
TEST(StateField, FollowsTheLabelledVariants) {
  struct Case {
    const char* labels;  // 'x' for a labelled variant
    int fields[4];
  } cases[] = {
      {"xxxx", {0, 1, 2, 3}},    {"-xx-", {-1, 1, 2, -1}},  {"x-x-", {0, -1, 1, -1}},
      {"--x-", {-1, -1, 1, -1}}, {"---x", {-1, -1, -1, 1}}, {"----", {-1, -1, -1, -1}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.labels);
    tClauseTemplate clause;
    for (int i = 0; i < 4; ++i) clause.VariantLabels[i] = c.labels[i] == 'x' ? "On" : "";
    for (int i = 0; i < 4; ++i) EXPECT_EQ(StateField(clause, i), c.fields[i]) << i;
  }
}

}  // namespace
