#include <gtest/gtest.h>

#include <string>

#include "parse/parsefil.h"
#include "rules/clauslst.h"
#include "testutil.h"

namespace {

// The plain reader never hands out an empty line: a bare line end, a CR LF or
// the end of the file is passed over, a line of blanks is not. Each line comes
// with the number of its physical line.
TEST(LineReader, PassesOverEmptyLinesOnly) {
  struct Case {
    const char* input;
    const char* expected;  // "number:line|" for each line read
  } cases[] = {
      {"", ""},
      {"a", "1:a|"},
      {"a\n\n\r\n  \nb\n", "1:a|4:  |5:b|"},
      {"\n\n\nlast", "4:last|"},
      {"x\r\n\r\n", "1:x|"},
  };
  for (const Case& c : cases) {
    TempFile text(c.input);
    tParseableFile file(text.Name());
    std::string read;
    for (file.Next(); !file.Eof(); file.Next())
      read += std::to_string(file.LineNumber) + ":" + file.Line().Text() + "|";
    EXPECT_EQ(read, c.expected) << c.input;
  }
}

// Reading a clause list answers 0, whatever the list holds; a last line of
// blanks or commas is not a clause.
TEST(TemplateLists, ReadAnswersZeroAndKeepsTheClausesItFinds) {
  struct Case {
    const char* input;
    int clauses;
  } cases[] = {
      {"", 0},
      {"~~~\n\"A\", \"on\", \"\", \"\", \"\", \"\", \"\"\n~0, 1, S\na\n~~~\n", 1},
      {"~~~\nA on \"\" \"\" \"\" \"\" \"\"\n~~~\nB on \"\" \"\" \"\" \"\" \"\"\n~~~\n , ,\n", 2},
      {"~~~~Label Rules\n", 0},
  };
  for (const Case& c : cases) {
    TempFile text(c.input);
    tFilterTemplateFile file(text.Name());
    DListtClauseTemplate list;
    EXPECT_EQ(list.Read(file), 0) << c.input;
    EXPECT_EQ(list.Size(), c.clauses) << c.input;
  }
}

}  // namespace
