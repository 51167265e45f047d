#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parse/parsefil.h"
#include "testutil.h"

namespace {

// Tokens, separated by '|', that GetString(width) yields until the end.
template <typename File>
std::string Tokens(const std::string& text, int width = -1) {
  TempFile file(text);
  File in(file.Name());
  std::string out;
  while (!in.Eof()) out += std::string(in.GetString(width).Text()) + "|";
  return out;
}

template <typename File>
std::string Lines(const std::string& text) {
  TempFile file(text);
  File in(file.Name());
  std::string out;
  while (!in.Eof()) out += std::string(in.GetLine().Text()) + "|";
  return out;
}

TEST(ParseableFile, TemplateLinesDropCommentsAndEmptyLines) {
  struct Case {
    const char* text;
    const char* lines;
  } cases[] = {
      {"a\n\n\r\nb\n", "a|b|"},
      {"// note\nx // tail\n", "x |"},
      {"\"a//b\" c\n", "\"a|"},
      {"  \nlast", "  |last|"},
      {"one\r\ntwo\r\n", "one|two|"},
      {"", "|"},  // the first line is only fetched by the first read
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Lines<tFilterTemplateFile>(c.text), c.lines);
  }
}

TEST(ParseableFile, DataLinesAreOnlyThoseBeginningWithThreeHashes) {
  struct Case {
    const char* text;
    const char* lines;
  } cases[] = {
      {"## header\nfilter text\n###a\n", "a|"},
      {"###\n### b\n", " b|"},
      {"x###y\n###~~~~lab\n", "~~~~lab|"},
      {"###// kept\n", "// kept|"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Lines<tFilterDataFile>(c.text), c.lines);
  }
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
    EXPECT_EQ(Tokens<tFilterTemplateFile>(c.text, c.width), c.tokens);
  }
}

TEST(ParseableFile, CharactersAndLineEnds) {
  TempFile file("ab\ncd\n");
  tFilterTemplateFile in(file.Name());
  EXPECT_EQ(in.Ch(), 'a');
  EXPECT_EQ(in.GetCh(), 'a');
  EXPECT_EQ(in.GetCh(), 'b');  // the last character fetches the next line
  EXPECT_STREQ(in.Line().Text(), "cd");
  EXPECT_STREQ(in.GetLine().Text(), "cd");
  EXPECT_TRUE(in.Eof());
  EXPECT_EQ(in.GetCh(), '\0');
  EXPECT_STREQ(in.GetString(-1).Text(), "");
}

TEST(ParseableFile, StandardInputStaysOpenAfterClose) {
  tFilterDataFile in(nullptr);
  EXPECT_EQ(in.IsOpen, 1);
  EXPECT_EQ(in.Close(), 1);
  EXPECT_EQ(in.IsOpen, 0);
  EXPECT_EQ(in.Open(nullptr), 1);
}

}  // namespace
