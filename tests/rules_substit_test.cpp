#include "rules/substit.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

void Fill(DListtString& list, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) list.ToTail(new tString(String(text.c_str())));
}

// Every pair applied in turn to the whole text, as the output is defined.
std::string EveryPair(std::string text, const std::vector<std::string>& names,
                      const std::vector<std::string>& values) {
  String s(text.c_str());
  for (size_t i = 0; i < names.size() && i < values.size(); ++i)
    s.ReplaceAll(names[i].c_str(), values[i].c_str());
  return s.Text();
}

std::string Applied(const std::string& text, const std::vector<std::string>& names,
                    const std::vector<std::string>& values) {
  DListtString nameList, valueList;
  Fill(nameList, names);
  Fill(valueList, values);
  tSubstitutions substitutions(nameList, valueList);
  String s(text.c_str());
  substitutions.Apply(s);
  return s.Text();
}

TEST(Substitutions, PairsInOrder) {
  struct Case {
    const char* text;
    std::vector<std::string> names, values;
    const char* expected;
  } cases[] = {
      {"dev IF on IF", {"IF"}, {"eth0"}, "dev eth0 on eth0"},
      {"A", {"A", "B"}, {"B", "C"}, "C"},            // a later pair sees an earlier result
      {"B", {"A", "B"}, {"B", "A"}, "A"},            // an earlier pair does not see a later one
      {"AB", {"B", "AC"}, {"C", "x"}, "x"},          // a replacement makes a name
      {"ABC", {"ABC", "B"}, {"q", "z"}, "q"},        // a replacement removes one
      {"xyz", {"", "y"}, {"1", "2"}, "x2z"},         // an empty name changes nothing
      {"aca", {"a", "c"}, {"b"}, "bcb"},             // a name without a value is no pair
      {"she said", {"he", "she", "e"}, {"HE", "SHE", "E"}, "sHE said"},
      {"XX", {"X", "X"}, {"Y", "Z"}, "YY"},          // a repeated name: the first pair wins
      {"a${L}b", {"${L}"}, {"${L}${L}"}, "a${L}${L}b"},  // a value holding its own name
      {"", {"a"}, {"b"}, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Applied(c.text, c.names, c.values), c.expected);
  }
}

// Small alphabets make names overlap, nest, repeat and appear inside values,
// so the scan and the rescans after a change meet every case the order of
// pairs can produce.
TEST(Substitutions, AgreeWithEveryPairInTurn) {
  std::mt19937 random(5);
  auto word = [&](int min, int max, const char* letters) {
    std::string w(std::uniform_int_distribution<int>(min, max)(random), 'a');
    for (char& c : w) c = letters[random() % std::strlen(letters)];
    return w;
  };
  int changed = 0;
  for (int round = 0; round < 3000; ++round) {
    const char* letters = round % 2 ? "ab" : "abc$";
    std::vector<std::string> names, values;
    int pairs = static_cast<int>(random() % 8);
    for (int i = 0; i < pairs; ++i) {
      names.push_back(word(0, 3, letters));
      values.push_back(word(0, 4, letters));
      // A value that shares letters with its own name can set off a cascade
      // that only the cap of ReplaceAll ends, which is slow and tested there;
      // most values here hold none of them.
      if (random() % 8) {
        for (char& c : values.back()) {
          if (names.back().find(c) != std::string::npos) c = 'z';
        }
      }
    }
    if (random() % 4 == 0) names.push_back(word(1, 3, letters));
    DListtString nameList, valueList;
    Fill(nameList, names);
    Fill(valueList, values);
    tSubstitutions substitutions(nameList, valueList);
    // One object serves many texts, as in the output.
    for (int k = 0; k < 10; ++k) {
      std::string text = word(0, 30, letters);
      std::string expected = EveryPair(text, names, values);
      SCOPED_TRACE(text);
      String s(text.c_str());
      substitutions.Apply(s);
      ASSERT_EQ(std::string(s.Text()), expected);
      if (expected != text) ++changed;
    }
  }
  EXPECT_GT(changed, 10000);
}

TEST(Substitutions, HugeNamesAreAppliedPairByPair) {
  std::vector<std::string> names, values;
  for (int i = 0; i < 40; ++i) {
    names.push_back(std::string(200000, 'a') + static_cast<char>('A' + i % 26) + std::to_string(i));
    values.push_back("v" + std::to_string(i));
  }
  std::string text = "x" + names[3] + "y" + names[39];
  EXPECT_EQ(Applied(text, names, values), "xv3yv39");
}

}  // namespace
