#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "app/common.h"
#include "app/filterd.h"
#include "edit/model.h"
#include "edit/names.h"
#include "edit/readback.h"
#include "testutil.h"

namespace {

// The template of tests/data/edit-layouts.tpl: clauses whose variant labels
// lie in every layout the section treats differently.
struct Layouts {
  Layouts() : Document(TestData("edit-layouts.tpl").c_str(), 0), Model(Document) {}

  tClauseData& Record(const char* clause) {
    String why;
    tClauseData* record = FindClause(*Model.Set("(Main)"), clause, why);
    EXPECT_NE(record, nullptr) << why.Text();
    return *record;
  }

  tFilterData Document;
  tEditModel Model;
};

std::string Entries(DListtString& list) { return list.ToString("|", 0).Text(); }

// "done" or the reason an edit was refused.
std::string Outcome(int result, const String& why) { return result == 0 ? "done" : why.Text(); }

TEST(TypedEntries, SplitsAtCommasAndRefusesWhatTheSectionCannotHold) {
  struct {
    const char* typed;
    const char* expected;
  } cases[] = {
      {"a", "a"},
      {"a,b", "a|b"},
      {" a ,\tb ", "a|b"},
      {"10.1.*.*", "10.1.*.*"},
      {"~x,#y,'z", "~x|#y|'z"},
      {"a b", "an entry cannot hold a blank or tab: the file would read 'a b' back as 'ab'"},
      {"a\tb,c", "an entry cannot hold a blank or tab: the file would read 'a\tb' back as 'ab'"},
      {"a\nb", "an entry cannot hold a line end"},
      {"", "an entry cannot be empty"},
      {"a,,b", "an entry cannot be empty"},
      {"a,", "an entry cannot be empty"},
      {" ", "an entry cannot be empty"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.typed);
    std::vector<String> entries;
    String why;
    std::string got;
    if (TypedEntries(c.typed, entries, why) < 0) {
      got = why.Text();
    } else {
      for (const String& entry : entries)
        got += (got.empty() ? "" : "|") + std::string(entry.Text());
    }
    EXPECT_EQ(got, c.expected);
  }
}

TEST(EditModel, SwitchesOnlyVariantsThatReadBackInPlace) {
  Layouts layouts;
  const char gap[] =
      "variant 'c' cannot be switched on: the template's unlabelled variants before it make the "
      "file read its state back at another position";
  struct {
    const char* clause;
    int variant;
    int on;
    const char* expected;
  } cases[] = {
      {"All four", 3, 1, "done"},
      {"All four", 0, 1, "done"},
      {"Gap", 0, 1, "done"},
      {"Gap", 2, 1, gap},
      {"Gap", 2, 0, "done"},
      {"Gap", 1, 1, "the clause has no such variant"},
      {"Last two", 2, 1, gap},
      {"Last two", 3, 1,
       "variant 'd' cannot be switched on: the template's unlabelled variants before it make the "
       "file read its state back at another position"},
      {"Second", 1, 1, "done"},
      {"Second", 0, 1, "the clause has no such variant"},
      {"Second reply", 0, 1, "done"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.clause) + " " + std::to_string(c.variant));
    tClauseData& record = layouts.Record(c.clause);
    int before = record.VariantStates[c.variant];
    String why;
    int result = layouts.Model.SetVariant(record, c.variant, c.on, why);
    EXPECT_EQ(Outcome(result, why), c.expected);
    EXPECT_EQ(record.VariantStates[c.variant], result == 0 ? c.on : before);
  }
}

// Each row runs its edits, one a word group, on the clause "All four": "+L P
// TEXT" inserts before entry P of list L, "=L P TEXT" changes entry P, "-L P"
// removes it, ">L F T" moves entry F to T. Expected: both lists after the
// edits, or the reason the last edit was refused.
TEST(EditModel, EditsEntriesOfBothLists) {
  const char firstNeeded[] =
      "list 'Hosts' must hold an entry while list 'Ports' does: the file would read it back as "
      "one empty entry";
  struct {
    std::vector<const char*> edits;
    const char* expected;
  } cases[] = {
      {{"+0 0 a", "+0 1 b,c"}, "a|b|c / "},
      {{"+0 0 a", "+0 0 b"}, "b|a / "},
      {{"+0 0 a,b,c", "+0 1 x,y"}, "a|x|y|b|c / "},
      {{"+0 0 a,b,c", "=0 1 x,y"}, "a|x|y|c / "},
      {{"+0 0 a,b,c", "-0 2"}, "a|b / "},
      {{"+0 0 a,b,c", ">0 0 2"}, "b|c|a / "},
      {{"+0 0 a,b,c", ">0 2 0"}, "c|a|b / "},
      {{"+0 0 a", "+1 0 23"}, "a / 23"},
      {{"+1 0 23"}, firstNeeded},
      {{"+0 0 a", "+1 0 23", "-0 0"}, firstNeeded},
      {{"+0 0 a,b", "-0 2"}, "there is no entry 3"},
      {{"+0 2 a"}, "there is no entry 3"},
      {{"+0 0 a", "=0 0 b c"},
       "an entry cannot hold a blank or tab: the file would read 'b c' back as 'bc'"},
      {{"+0 0 a", ">0 0 1"}, "there is no entry 2"},
  };
  for (const auto& c : cases) {
    Layouts fresh;
    tClauseData& record = fresh.Record("All four");
    std::string outcome;
    for (const char* edit : c.edits) {
      SCOPED_TRACE(edit);
      String why;
      // "+L P TEXT": the text, or ">L F T": the position T, from the sixth
      // character on; "-L P" has none.
      int list = edit[1] - '0', a = edit[3] - '0';
      const char* text = std::strlen(edit) > 5 ? edit + 5 : "";
      int b = text[0] - '0';
      int result = 0;
      switch (edit[0]) {
        case '+':
          result = fresh.Model.InsertEntries(record, list, a, text, why);
          break;
        case '=':
          result = fresh.Model.ChangeEntry(record, list, a, text, why);
          break;
        case '-':
          result = fresh.Model.RemoveEntry(record, list, a, why);
          break;
        case '>':
          result = fresh.Model.MoveEntry(record, list, a, b, why);
          break;
      }
      outcome =
          result == 0 ? Entries(record.Values0) + " / " + Entries(record.Values1) : why.Text();
    }
    EXPECT_EQ(outcome, c.expected) << c.edits.front();
  }
}

TEST(EditModel, RefusesDataSetNamesTheSectionCannotReadBack) {
  struct {
    const char* name;
    const char* expected;
  } cases[] = {
      {"lab1", "done"},
      {"x'y", "done"},
      {"~z", "done"},
      {"lab1", "there is a data set 'lab1' already"},
      {"(Main)", "there is a data set '(Main)' already"},
      {"", "a data set needs a name"},
      {"my label",
       "a data set name cannot hold a blank, tab, comma or line end: the file would read 'my "
       "label' back as another name"},
      {"a,b",
       "a data set name cannot hold a blank, tab, comma or line end: the file would read 'a,b' "
       "back as another name"},
      {"'q",
       "a data set name cannot begin with a quote character: the file would read ''q' back "
       "without it"},
  };
  Layouts layouts;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    String why;
    EXPECT_EQ(Outcome(layouts.Model.AddSet(c.name, why), why), c.expected);
  }
  EXPECT_EQ(layouts.Document.DataSets.Size(), 4);
  String why;
  DListtClauseData& main = *layouts.Model.Set("(Main)");
  EXPECT_EQ(Outcome(layouts.Model.RenameSet(main, "x", why), why),
            "the main data set cannot be renamed");
  EXPECT_EQ(Outcome(layouts.Model.RemoveSet(main, why), why),
            "the main data set cannot be removed");
  DListtClauseData& lab1 = *layouts.Model.Set("lab1");
  EXPECT_EQ(Outcome(layouts.Model.RenameSet(lab1, "~z", why), why),
            "there is a data set '~z' already");
  EXPECT_EQ(Outcome(layouts.Model.RenameSet(lab1, "lab2", why), why), "done");
  EXPECT_EQ(Outcome(layouts.Model.RemoveSet(lab1, why), why), "done");
  EXPECT_EQ(layouts.Model.Set("lab2"), nullptr);
  EXPECT_EQ(layouts.Document.DataSets.Size(), 3);
}

}  // namespace

namespace {

// The check before a save finds data that the file would give back otherwise,
// however it got into the document: entries are put in here past the model.
TEST(ReadBack, FindsEntriesTheFileWouldGiveBackOtherwise) {
  struct {
    const char* entry;
    int readsBack;
  } cases[] = {{"10.1.0.1", 1}, {"a b", 0}, {"a,b", 0}};
  for (const auto& c : cases) {
    Layouts layouts;
    tClauseData& record = layouts.Record("All four");
    record.Values0.ToTail(new tString("first"));
    record.Values0.ToTail(new tString(c.entry));
    String why;
    EXPECT_EQ(DataReadsBack(layouts.Document, why), c.readsBack) << c.entry;
    if (!c.readsBack) {
      EXPECT_NE(std::strstr(why.Text(), "All four"), nullptr) << why.Text();
    }
  }
}

}  // namespace
