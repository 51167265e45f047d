#include "text/str.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

std::string Rescanned(std::string s, const std::string& from, const std::string& to) {
  for (size_t p; (p = s.find(from)) != std::string::npos;) s.replace(p, from.size(), to);
  return s;
}

// Needles of one to sixteen bytes, on both sides of the length where the
// search changes method, in texts made of pieces of the needle itself, so that
// near misses, overlaps and occurrences at both ends are common.
TEST(StringEdit, ReplaceAllAnyNeedleLength) {
  std::mt19937 random(3);
  auto word = [&](int min, int max) {
    std::string w(std::uniform_int_distribution<int>(min, max)(random), 'a');
    for (char& c : w) c = "ab"[random() % 2];
    return w;
  };
  int replaced = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string from = word(1, 16);
    std::string text;
    while (text.size() < 80) {
      if (random() % 3) {
        size_t start = random() % from.size();
        text += from.substr(start, random() % (from.size() - start + 1));
      } else {
        text += word(0, 2);
      }
    }
    // Letters that occur in no needle: no replacement can make a new
    // occurrence, and the rule ends.
    std::string to = std::string("xyz").substr(0, random() % 4);
    std::string expected = Rescanned(text, from, to);
    if (expected != text) ++replaced;
    SCOPED_TRACE(text + ": " + from + " -> " + to);
    String s(text.c_str());
    ASSERT_STREQ(s.ReplaceAll(from.c_str(), to.c_str()).Text(), expected.c_str());
  }
  EXPECT_GT(replaced, 10000);
}

}  // namespace
