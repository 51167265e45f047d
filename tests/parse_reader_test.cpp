#include <gtest/gtest.h>

#include <string>

#include "parse/parsefil.h"
#include "testutil.h"

namespace {

// Tokens, separated by '|', that GetString(width) yields until the end.
std::string Tokens(const std::string& text, int width) {
  TempFile file(text);
  tFilterTemplateFile in(file.Name());
  std::string out;
  while (!in.Eof()) out += std::string(in.GetString(width).Text()) + "|";
  return out;
}

TEST(ParseableFile, GetStringSplitsTokensAndQuotes) {
  struct Case {
    const char* text;
    int width;
    const char* tokens;
  } cases[] = {
      {"a, b,,c\nd\n", -1, "a|b|c|d|"},
      {"'it, is' x\n", -1, "it, is|x|"},
      {"\"abc\nnext\n", -1, "abc|next|"},
      {"`x\"y'` z\n", -1, "x\"y'|z|"},
      {"\"\" a\n", -1, "|a|"},
      {" , \t,\nz\n", -1, "z|"},
      {"~~~~Main Rules\n", 4, "~~~~|Main| Rul|es|"},
      {"abcdefg\n  x\n", 5, "abcde|fg|  x|"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Tokens(c.text, c.width), c.tokens);
  }
}

TEST(ParseableFile, StandardInputStaysOpenAfterClose) {
  tFilterDataFile in(nullptr);
  EXPECT_EQ(in.IsOpen, 1);
  EXPECT_EQ(in.Close(), 1);
  EXPECT_EQ(in.IsOpen, 0);
  EXPECT_EQ(in.Open(nullptr), 1);
}

}  // namespace
