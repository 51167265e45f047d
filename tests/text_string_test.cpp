#include "text/str.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

const int All = String::All;

// The rescan rule taken literally, stopped after `steps` replacements; returns
// false when it had not ended by then.
bool NaiveReplaceAll(std::string& s, const std::string& from, const std::string& to, int steps) {
  for (size_t p; (p = s.find(from)) != std::string::npos; s.replace(p, from.size(), to)) {
    if (steps-- == 0) return false;
  }
  return true;
}

std::string OnePass(const std::string& s, const std::string& from, const std::string& to) {
  std::string out;
  size_t at = 0;
  for (size_t p; (p = s.find(from, at)) != std::string::npos; at = p + from.size()) {
    out += s.substr(at, p - at) + to;
  }
  return out + s.substr(at);
}

TEST(StringSearch, AtChar) {
  struct Case { const char* text; char c; int start, count, expected; } cases[] = {
      {"a,b,c", ',', 0, All, 1}, {"a,b,c", ',', 2, All, 3}, {"a,b,c", ',', 2, 1, -1},
      {"a,b,c", ',', 2, 2, 3},   {"abc", 'x', 0, All, -1},  {"abc", 'a', 3, All, -1},
      {"", 'a', 0, All, -1},     {"abc", 'c', 0, 0, -1},    {"abc", 'a', 0, -5, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " start " + std::to_string(c.start) + " count " + std::to_string(c.count));
    EXPECT_EQ(String(c.text).At(c.c, c.start, c.count), c.expected);
  }
}

TEST(StringSearch, AtSubstring) {
  struct Case { const char* text; const char* s; int start, count, expected; } cases[] = {
      {"xabab", "ab", 0, All, 1}, {"xabab", "ab", 2, All, 3}, {"xabab", "ab", 1, 2, 1},
      {"xabab", "ab", 1, 1, -1},  // starts inside the range, ends beyond it
      {"xabab", "ab", 3, 1, -1},  {"abc", "", 1, All, 1},    {"abc", "", 1, -1, -1},
      {"abc", "abcd", 0, All, -1}, {"aaab", "aab", 0, All, 1}, {"abc", "c", 3, All, -1},
      {"abc", "bc", 1, 2, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " / " + c.s + " start " + std::to_string(c.start));
    EXPECT_EQ(String(c.text).At(c.s, c.start, c.count), c.expected);
  }
}

TEST(StringSearch, SetsAndLast) {
  enum Kind { In, NotIn, Last };
  struct Case { Kind kind; const char* text; const char* set; int start, count, expected; } cases[] = {
      {In, "a, b ,c", " ,", 0, All, 1}, {In, "abc", " ,", 0, All, -1}, {In, "a, b", " ,", 2, All, 2},
      {In, "ab,c", ",", 0, 2, -1},      {In, "ab,c", ",", 0, 3, 2},    {In, "abc", "", 0, All, -1},
      {In, "abc", "c", 3, All, -1},     {NotIn, "  ab", " ", 0, All, 2}, {NotIn, "   ", " ", 0, All, -1},
      {NotIn, "  ab", " ", 0, 2, -1},   {NotIn, "ab", "", 1, All, 1},  {NotIn, "", " ", 0, All, -1},
      {NotIn, "ab", "", 2, All, -1},    {Last, "a,b,c", ",", 0, All, 3}, {Last, "a,b,c", ",", 0, 2, 1},
      {Last, "a,b,c", ",", 2, 1, -1},   {Last, "a,b,c", ",", 4, All, -1}, {Last, "a,b,c", ",", 1, 1, 1},
      {Last, "abc", "a", 0, 0, -1},     {Last, "aXa", "a", 1, All, 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.kind) + " " + c.text + " / " + c.set + " start " + std::to_string(c.start));
    String s(c.text);
    int got = c.kind == In ? s.AtFirstIn(c.set, c.start, c.count)
              : c.kind == NotIn ? s.AtFirstNotIn(c.set, c.start, c.count)
                                : s.AtLast(c.set[0], c.start, c.count);
    EXPECT_EQ(got, c.expected);
  }
}

TEST(StringEdit, CopyCutHead) {
  struct Case { const char* text; int start, count; const char* part; const char* left; } cases[] = {
      {"abc", 1, 100, "bc", "a"}, {"abc", 3, 1, "", "abc"},  {"abc", 0, 0, "", "abc"},
      {"abc", -1, 2, "", "abc"},  {"abc", 0, All, "abc", ""}, {"abcde", 1, 2, "bc", "ade"},
      {"", 0, 1, "", ""},         {"abc", 2, -1, "", "abc"},  {"abc", 0, 2, "ab", "c"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " start " + std::to_string(c.start) + " count " + std::to_string(c.count));
    String s(c.text);
    String holder = s;
    String copy = s.Copy(c.start, c.count);
    EXPECT_STREQ(copy.Text(), c.part);
    // An empty result is always a share of Empty, never a block of its own.
    EXPECT_EQ(copy.Text() == Empty.Text(), *c.part == '\0');
    String cut = c.start == 0 ? s.CutHead(c.count) : s.Cut(c.start, c.count);
    EXPECT_STREQ(cut.Text(), c.part);
    EXPECT_STREQ(s.Text(), c.left);
    EXPECT_EQ(s.Length(), static_cast<int>(std::string(c.left).size()));
    EXPECT_STREQ(holder.Text(), c.text);
    if (c.start == 0) {
      EXPECT_STREQ(String(c.text).Head(c.count).Text(), c.part);
    }
  }
}

TEST(StringEdit, LongCopyAndCut) {
  String s(std::string(50000, 'x').append("y").c_str());
  EXPECT_EQ(s.Copy(1, 40000).Length(), 40000);
  EXPECT_EQ(s.Cut(10, 45000).Length(), 45000);
  EXPECT_EQ(s.Length(), 5001);
  EXPECT_EQ(s.At('y'), 5000);
}

TEST(StringEdit, Paste) {
  struct Case { const char* text; const char* s; int pos; const char* expected; } cases[] = {
      {"abc", "X", -1, "abcX"}, {"abc", "X", 0, "Xabc"}, {"abc", "X", 3, "abcX"}, {"abc", "X", 4, "abcX"},
      {"abc", "XY", 1, "aXYbc"}, {"abc", "", 1, "abc"},  {"", "X", 0, "X"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " + " + c.s + " at " + std::to_string(c.pos));
    String s(c.text);
    String holder = s;
    EXPECT_STREQ(s.Paste(c.s, c.pos).Text(), c.expected);
    EXPECT_STREQ(holder.Text(), c.text);
  }
  String own("abc");
  EXPECT_STREQ(own.Paste(own.Text(), 1).Text(), "aabcbc");
}

TEST(StringEdit, ReplaceAll) {
  struct Case { const char* text; const char* from; const char* to; const char* expected; } cases[] = {
      {"abb", "ab", "a", "a"},             // the rescan matches what a replacement brought together
      {"aabb", "ab", "b", "bb"},           {"xaabby", "ab", "", "xy"},
      {"bbbaaa", "ba", "ab", "aaabbb"},    {"a${0}b${0}", "${0}", "x", "axbx"},
      {"aaa", "a", "", ""},                {"aaa", "aa", "b", "ba"},
      {"abc", "", "X", "abc"},             {"abc", "x", "y", "abc"},
      {"aXa", "a", "aa", "aaXaa"},         // `to` holds `from`: one pass
      {"${0}", "${0}", "<${0}>", "<${0}>"}, {"aab", "ab", "bbaa", "abbaa"},  // never ends: one pass
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + ": " + c.from + " -> " + c.to);
    String s(c.text);
    String holder = s;
    EXPECT_STREQ(s.ReplaceAll(c.from, c.to).Text(), c.expected);
    EXPECT_STREQ(holder.Text(), c.text);
  }
  String own("ab");
  EXPECT_STREQ(own.ReplaceAll("b", own.Text()).Text(), "aab");
}

TEST(StringEdit, ReplaceAllAgreesWithTheRescanRule) {
  std::mt19937 random(7);
  auto word = [&](int min, int max) {
    std::string w(std::uniform_int_distribution<int>(min, max)(random), 'a');
    for (char& c : w) c = "ab"[random() % 2];
    return w;
  };
  int compared = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text = word(0, 12), from = word(1, 3), to = word(0, 4), expected = text;
    bool ends = to.find(from) == std::string::npos && NaiveReplaceAll(expected, from, to, 2000);
    if (to.find(from) != std::string::npos) expected = OnePass(text, from, to);
    else if (!ends) continue;
    SCOPED_TRACE(text + ": " + from + " -> " + to);
    String s(text.c_str());
    ASSERT_STREQ(s.ReplaceAll(from.c_str(), to.c_str()).Text(), expected.c_str());
    ++compared;
  }
  EXPECT_GT(compared, 10000);
}

// Longer texts over three letters: most replacements leave no new occurrence
// behind, so the single pass answers, and the rest must be caught by its check
// of the characters around each inserted text.
TEST(StringEdit, ReplaceAllSinglePassKnowsWhenToRescan) {
  struct Case { const char* text; const char* from; const char* to; const char* expected; } cases[] = {
      {"xabcabc", "abc", "", "x"},       // shortening at the very end
      {"aabcbc", "abc", "", ""},         // the left neighbour completes a new one
      {"abcc", "abc", "ab", "ab"},       // the inserted text and the right neighbour
      {"aabab", "ab", "b", "bb"},        {"ab${0}", "${0}", "x", "abx"},
      {"$${0}{0}", "${0}", "", ""},      {"${0}0}", "${0}", "${", "${"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + ": " + c.from + " -> " + c.to);
    String s(c.text);
    EXPECT_STREQ(s.ReplaceAll(c.from, c.to).Text(), c.expected);
  }

  std::mt19937 random(11);
  auto word = [&](int min, int max) {
    std::string w(std::uniform_int_distribution<int>(min, max)(random), 'a');
    for (char& c : w) c = "ab$"[random() % 3];
    return w;
  };
  int compared = 0, rescans = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text = word(0, 60), from = word(1, 4), to = word(0, 6), expected = text;
    if (to.find(from) != std::string::npos) continue;
    if (!NaiveReplaceAll(expected, from, to, 5000)) continue;
    if (expected != OnePass(text, from, to)) ++rescans;
    SCOPED_TRACE(text + ": " + from + " -> " + to);
    String s(text.c_str());
    ASSERT_STREQ(s.ReplaceAll(from.c_str(), to.c_str()).Text(), expected.c_str());
    ++compared;
  }
  EXPECT_GT(compared, 15000);
  EXPECT_GT(rescans, 500);
}

TEST(StringEdit, ReplaceAllIsLinear) {
  // 100,000 cascading replacements, each created by the one before.
  String s((std::string(100000, 'a') + std::string(100000, 'b')).c_str());
  EXPECT_EQ(s.ReplaceAll("ab", "").Length(), 0);
  String many(std::string(200000, 'a').c_str());
  EXPECT_EQ(many.ReplaceAll("a", "bc").Length(), 400000);
}

TEST(StringEdit, StripAndToUpper) {
  struct Case { const char* text; const char* set; const char* stripped; const char* upper; } cases[] = {
      {"a, b ,c", " ,", "abc", "A, B ,C"}, {"abc", "", "abc", "ABC"},  {"  ", " ", "", "  "},
      {"a\tb\r\n", " \t\r\n", "ab", "A\tB\r\n"}, {"", ",", "", ""}, {"z\xe4{9", "9", "z\xe4{", "Z\xe4{9"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    String s(c.text);
    String holder = s;
    EXPECT_STREQ(s.Strip(c.set).Text(), c.stripped);
    EXPECT_STREQ(s.ToUpper().Text(), c.upper);
    EXPECT_STREQ(holder.Text(), c.text);
  }
}

TEST(StringCore, LengthCompareRemove) {
  struct Case { const char* text; int max, length; } lengths[] = {
      {"abcde", 3, 3}, {"abcde", 0, 0}, {"abcde", -1, 0}, {"", All, 0}, {"abcde", All, 5}, {"abc", 3, 3},
  };
  for (const Case& c : lengths) {
    SCOPED_TRACE(std::string(c.text) + " max " + std::to_string(c.max));
    EXPECT_EQ(String(c.text).Length(c.max), c.length);
  }
  struct Pair { const char* a; const char* b; int equal; } pairs[] = {
      {"abc", "abc", 1}, {"abc", "abd", 0}, {"ab", "abc", 0}, {"abc", "ab", 0}, {"", "", 1}, {"A", "a", 0},
  };
  for (const Pair& p : pairs) {
    SCOPED_TRACE(std::string(p.a) + " == " + p.b);
    EXPECT_EQ(String(p.a) == String(p.b), p.equal);
    EXPECT_EQ(String(p.a) == p.b, p.equal);
    EXPECT_EQ(String(p.a) != String(p.b), !p.equal);
    EXPECT_EQ(String(p.a) != p.b, !p.equal);
  }
  struct Removal { const char* text; const char* s; const char* expected; } removals[] = {
      {"xabab", "ab", "xab"}, {"abc", "x", "abc"}, {"abc", "", "abc"}, {"abc", "abc", ""},
  };
  for (const Removal& r : removals) {
    SCOPED_TRACE(std::string(r.text) + " -= " + r.s);
    String s(r.text);
    EXPECT_STREQ((s -= r.s).Text(), r.expected);
  }
}

TEST(StringCore, MakeLong) {
  std::pair<long, const char*> cases[] = {{0, "0"}, {-5, "-5"}, {2147483647, "2147483647"}, {LONG_MIN, "-9223372036854775808"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.second);
    String s("replaced");
    s.Make(c.first);  // a block already held is released, not leaked
    EXPECT_STREQ(s.Text(), c.second);
  }
}

TEST(StringCore, CopyOnWrite) {
  String a("abc");
  String b("xyz");
  b = a;
  EXPECT_EQ(a.Shares(), 2);
  a += "d";
  EXPECT_STREQ(b.Text(), "abc");
  EXPECT_EQ(b.Shares(), 1);
  EXPECT_STREQ((a + b).Text(), "abcdabc");
  EXPECT_STREQ(a.Text(), "abcd");

  b = a;
  a[0] = 'X';
  static_cast<char*>(b)[1] = 'Y';
  EXPECT_STREQ(a.Text(), "Xbcd");
  EXPECT_STREQ(b.Text(), "aYcd");

  String& self = a;
  a = self;
  EXPECT_STREQ(a.Text(), "Xbcd");
  a = a.Text() + 1;
  EXPECT_STREQ(a.Text(), "bcd");
  a += a;
  a += a.Text() + 4;
  EXPECT_STREQ(a.Text(), "bcdbcdcd");

  // Growing in place must not leak into a holder that shares the block later.
  String grown;
  for (int i = 0; i < 100000; ++i) grown += "x";
  String kept = grown;
  grown += "y";
  EXPECT_EQ(kept.Length(), 100000);
  EXPECT_EQ(grown.Length(), 100001);
  EXPECT_EQ(grown.At('y'), 100000);
}

TEST(StringCore, ShareCountDoesNotWrap) {
  String a("shared");
  std::vector<String> copies(70000, a);
  EXPECT_EQ(a.Shares(), 65535);
  String assigned;
  assigned = a;
  EXPECT_EQ(assigned.Shares(), 1);
  copies[0] += "!";
  copies.back() += "?";
  EXPECT_STREQ(copies[1].Text(), "shared");
  EXPECT_STREQ(a.Text(), "shared");
  copies.clear();
  EXPECT_EQ(a.Shares(), 1);
}

struct ReadCase {
  std::string input;
  std::vector<std::pair<int, std::string>> reads;  // result and text of each call
};

TEST(StringRead, Fgets) {
  const std::string x510(510, 'x'), x1000(1000, 'x'), x100000(100000, 'x');
  const ReadCase cases[] = {
      {"a\r\nb\n", {{1, "a"}, {1, "b"}, {0, ""}}},
      {"a\nlast", {{1, "a"}, {0, "last"}}},
      {"\n\n", {{1, ""}, {1, ""}, {0, ""}}},
      {"", {{0, ""}}},
      {"a\r\rb\n\r\n", {{1, "a\r\rb"}, {1, ""}, {0, ""}}},
      {"a\n\rb", {{1, "a"}, {0, "\rb"}}},
      {x1000 + "\n", {{1, x1000}, {0, ""}}},
      {x100000 + "\r\n" + x1000, {{1, x100000}, {0, x1000}}},
      {x510 + "\r\ny\n", {{1, x510}, {1, ""}, {1, "y"}}},  // the CR ends a 511-byte read
      {x510 + "x\r\n", {{1, x510 + "x"}, {0, ""}}},  // the CR starts the next read
      {x510 + "\n", {{1, x510}, {0, ""}}},
      {std::string("ab\0cd\nef\n", 9), {{1, "abef"}, {0, ""}}},  // a NUL cuts its read short
      {std::string("\0x\ny\n", 5), {{1, "y"}, {0, ""}}},
  };
  for (const ReadCase& c : cases) {
    SCOPED_TRACE(c.input.substr(0, 20) + "... (" + std::to_string(c.input.size()) + " bytes)");
    FILE* f = std::tmpfile();
    std::fwrite(c.input.data(), 1, c.input.size(), f);
    std::rewind(f);
    String line("left over");
    for (const auto& read : c.reads) {
      EXPECT_EQ(line.fgets(f), read.first);
      EXPECT_EQ(std::string(line.Text()), read.second);
    }
    std::fclose(f);
  }
}

}  // namespace
