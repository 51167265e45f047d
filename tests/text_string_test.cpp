#include "text/str.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

const int All = String::All;

TEST(StringSearch, StaysInsideTheRange) {
  enum Op { Ch, Sub, In, Not, Last };
  struct Case {
    Op op;
    const char *text, *arg;
    int start, count, expected;
  } cases[] = {
      {Ch, "a,b,c", ",", 2, 1, -1},    {Ch, "a,b,c", ",", 2, 2, 3},
      {Ch, "abc", "a", 3, All, -1},    {Ch, "abc", "c", 0, 0, -1},
      {Ch, "abc", "a", 0, -5, -1},     {Sub, "xabab", "ab", 2, 9, 3},
      {Sub, "xabab", "ab", 1, 2, 1},   {Sub, "xabab", "ab", 2, 2, -1},
      {Sub, "abc", "", 1, All, 1},     {Sub, "abc", "", 1, -1, -1},
      {Sub, "aaab", "aab", 0, 4, 1},   {Sub, "abc", "abcd", 0, 9, -1},
      {In, "ab,c", ",", 0, 2, -1},     {In, "ab,c", ",", 0, 3, 2},
      {In, "abc", "", 0, All, -1},     {Not, "  a", " ", 0, 2, -1},
      {Not, "ab", "", 1, All, 1},      {Not, "ab", "", 2, All, -1},
      {Last, "a,b,c", ",", 0, 2, 1},   {Last, "a,b,c", ",", 2, 1, -1},
      {Last, "a,b", ",", 4, All, -1},  {Ch, "abc", "a", -1, All, -1},
      {Sub, "abc", "a", -1, All, -1},  {Sub, "abc", "", 4, All, -1},
      {In, "abc", "a", -1, All, -1},   {In, "abc", "c", 4, All, -1},
      {Not, "abc", "b", -1, All, -1},  {Not, "abc", "b", 4, All, -1},
      {Last, "abc", "a", -1, All, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.op << ' ' << c.text << ' ' << c.start << '+' << c.count);
    String s(c.text);
    int found[] = {s.At(*c.arg, c.start, c.count), s.At(c.arg, c.start, c.count),
                   s.AtFirstIn(c.arg, c.start, c.count), s.AtFirstNotIn(c.arg, c.start, c.count),
                   s.AtLast(*c.arg, c.start, c.count)};
    EXPECT_EQ(found[c.op], c.expected);
  }
}

// Cut removes what Copy returns, from a shared block or in place; Paste before
// the start or past the end appends. No other holder's text changes.
TEST(StringEdit, CopyCutAndPasteClampTheirRange) {
  struct Case {
    const char* text;
    int start, count;
    const char *part, *left, *pasted;
  } cases[] = {
      {"abc", 1, 100, "bc", "a", "aXYbc"},
      {"abc", 3, 1, "", "abc", "abcXY"},
      {"abc", 4, 1, "", "abc", "abcXY"},
      {"abc", -1, 2, "", "abc", "abcXY"},
      {"abc", 0, 0, "", "abc", "XYabc"},
      {"abc", 2, -1, "", "abc", "abXYc"},
      {"abcde", 1, 2, "bc", "ade", "aXYbcde"},
      {"abc", 0, All, "abc", "", "XYabc"},
      {"", 0, 1, "", "", "XY"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.text << ' ' << c.start << '+' << c.count);
    String shared(c.text), holder = shared, alone(c.text), pasted = shared;
    EXPECT_STREQ(alone.Copy(c.start, c.count).Text(), c.part);
    EXPECT_STREQ(pasted.Paste("XY", c.start).Text(), c.pasted);
    for (String* s : {&shared, &alone}) {
      EXPECT_STREQ((c.start ? s->Cut(c.start, c.count) : s->CutHead(c.count)).Text(), c.part);
      EXPECT_STREQ(s->Text(), c.left);
      EXPECT_EQ(s->Length(), static_cast<int>(std::strlen(c.left)));
    }
    EXPECT_STREQ(holder.Text(), c.text);
  }
}

// The rule taken literally: replace the first occurrence, search again from the
// start. False when it has not ended after `steps` replacements.
bool Rescan(std::string& s, const std::string& from, const std::string& to, int steps) {
  for (size_t p; (p = s.find(from)) != std::string::npos; s.replace(p, from.size(), to))
    if (steps-- == 0) return false;
  return true;
}

std::string OnePass(const std::string& s, const std::string& from, const std::string& to) {
  std::string out;
  size_t at = 0;
  for (size_t p; (p = s.find(from, at)) != std::string::npos; at = p + from.size())
    out += s.substr(at, p - at) + to;
  return out + s.substr(at);
}

TEST(StringEdit, ReplaceAllRescansUnlessThatNeverEnds) {
  struct Case {
    std::string text, from, to, expected;
  } cases[] = {
      {"aabcbc", "abc", "", ""},    // the left neighbour completes a new occurrence
      {"abcc", "abc", "ab", "ab"},  // the inserted text and its right neighbour do
      {"xabcabc", "abc", "", "x"},  // shortening at the very end
      {std::string(100000, 'a') + std::string(100000, 'b'), "ab", "", ""},  // in linear time
      // a million replacements, each in the length of the searched text
      {std::string(1000, 'a') + std::string(1000, 'b'), "ab", "ba",
       std::string(1000, 'b') + std::string(1000, 'a')},
      {"aXa", "a", "aa", "aaXaa"},     // `to` holds `from`: one pass
      {"aab", "ab", "bbaa", "abbaa"},  // never ends although `to` lacks `from`: one pass
      {"abc", "", "X", "abc"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text.substr(0, 20) + ": " + c.from + " -> " + c.to);
    String s(c.text.c_str()), holder = s;
    EXPECT_EQ(s.ReplaceAll(c.from.c_str(), c.to.c_str()).Text(), c.expected);
    EXPECT_EQ(holder.Text(), c.text);
  }
  // Short texts over two letters, longer ones over three: the single pass
  // answers most, and its check around each insertion must catch the rest.
  // Every fourth round takes a needle of one to sixteen bytes, on both sides of
  // the length where the search changes method, and builds the text from its
  // pieces, so that near misses, overlaps and occurrences at both ends abound.
  std::mt19937 random(7);
  int rescans = 0;
  for (int round = 0; round < 40000; ++round) {
    const std::string letters = round % 2 ? "ab" : "ab$";
    auto word = [&](size_t max) {
      std::string w(random() % (max + 1), 'a');
      for (char& ch : w) ch = letters[random() % letters.size()];
      return w;
    };
    std::string text = word(round % 2 ? 12 : 60), from = word(3), to = word(5);
    if (round % 4 == 0) {
      from = word(15) + "b";
      for (text.clear(); text.size() < 80;) {
        size_t at = random() % from.size();
        text += random() % 3 ? from.substr(at, random() % (from.size() - at + 1)) : word(2);
      }
    }
    std::string expected = text;
    if (from.empty()) continue;
    if (to.find(from) != std::string::npos)
      expected = OnePass(text, from, to);
    else if (!Rescan(expected, from, to, 5000))
      continue;
    rescans += expected != OnePass(text, from, to);
    SCOPED_TRACE(text + ": " + from + " -> " + to);
    String s(text.c_str());
    ASSERT_EQ(s.ReplaceAll(from.c_str(), to.c_str()).Text(), expected);
  }
  EXPECT_GT(rescans, 1000);
}

TEST(StringCore, CopyOnWriteAndArgumentsInTheOwnText) {
  String a("abc"), b = a;
  a += "d";
  EXPECT_STREQ(b.Text(), "abc");
  b = a;
  a[0] = 'X';
  static_cast<char*>(b)[1] = 'Y';
  EXPECT_STREQ(a.Text(), "Xbcd");
  EXPECT_STREQ(b.Text(), "aYcd");
  String& self = a;
  a = self;
  a = a.Text() + 1;
  a += a;
  a += a.Text() + 4;
  EXPECT_STREQ(a.Text(), "bcdbcdcd");
  String own("ab");
  EXPECT_STREQ(own.ReplaceAll("b", own.Text()).Text(), "aab");
  EXPECT_STREQ(own.Paste(own.Text(), 1).Text(), "aaabab");
  own.Make(LONG_MIN);  // releases the block it holds
  EXPECT_STREQ(own.Text(), "-9223372036854775808");
  // A block grown in place must not change under a holder that shares it later.
  String grown;
  for (int i = 0; i < 1000; ++i) grown += "x";
  String kept = grown;
  grown += "y";
  EXPECT_EQ(kept.Length(), 1000);
  EXPECT_EQ(grown.At('y'), 1000);
}

// A write through [] changes a text held once in place, so that a run of
// writes costs no copies; a shared text is copied first, and its other holder
// keeps what it had.
TEST(StringCore, WritesCopyOnlyASharedText) {
  String a("abc");
  const char* block = a.Text();
  a[0] = 'x';
  EXPECT_EQ(a.Text(), block);
  String b = a;
  b[1] = 'y';
  EXPECT_STREQ(a.Text(), "xbc");
  EXPECT_STREQ(b.Text(), "xyc");
  EXPECT_EQ(a.Text(), block);
}

TEST(StringCore, ShareCountStopsAt65535) {
  String a("shared");
  std::vector<String> copies(70000, a);
  EXPECT_EQ(a.Shares(), 65535);
  copies.back() += "?";
  EXPECT_STREQ(copies[1].Text(), "shared");
  copies.clear();
  EXPECT_EQ(a.Shares(), 1);
}

// Each read of at most 511 bytes is judged alone: only its last byte, and the
// one before, can end the line; a NUL byte ends what the read contributes.
TEST(StringRead, Fgets) {
  const std::string x510(510, 'x'), x1000(1000, 'x');
  const std::pair<std::string, std::vector<std::pair<int, std::string>>> cases[] = {
      {"a\r\nb\n\nlast", {{1, "a"}, {1, "b"}, {1, ""}, {0, "last"}}},
      {"", {{0, ""}}},
      {"a\r\rb\n\r\n\rc", {{1, "a\r\rb"}, {1, ""}, {0, "\rc"}}},
      {x1000 + "\r\n" + x1000, {{1, x1000}, {0, x1000}}},
      {x510 + "\r\ny\n", {{1, x510}, {1, ""}, {1, "y"}}},  // the CR ends a read
      {x510 + "x\r\n", {{1, x510 + "x"}, {0, ""}}},        // the CR starts the next
      {std::string("ab\0cd\nef\n", 9), {{1, "abef"}, {0, ""}}},
      {std::string("\0x\ny\n", 5), {{1, "y"}, {0, ""}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.first.substr(0, 20) + " (" + std::to_string(c.first.size()) + " bytes)");
    FILE* f = std::tmpfile();
    std::fwrite(c.first.data(), 1, c.first.size(), f);
    std::rewind(f);
    String line("left over");
    for (const auto& read : c.second) {
      EXPECT_EQ(line.fgets(f), read.first);
      EXPECT_EQ(line.Text(), read.second);
    }
    std::fclose(f);
  }
}

}  // namespace
