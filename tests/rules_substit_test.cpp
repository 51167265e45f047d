#include "output/substit.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "output/fill.h"

namespace {

// Names, values and texts over small alphabets, so that names overlap, nest,
// repeat and appear inside values, and replacements make and remove names. In
// some rounds a name of four million letters leaves the names too large for
// the automaton, and the pairs are applied one after another; in others a name
// of every byte value makes the full table too large, and the scan follows the
// trie's edges instead.
TEST(Substitutions, AgreeWithEveryPairAppliedInTurn) {
  std::mt19937 random(5);
  int changed = 0;
  for (int round = 0; round < 3000; ++round) {
    const std::string letters = round % 2 ? "ab" : "abc$";
    auto word = [&](size_t max) {
      std::string w(random() % (max + 1), 'a');
      for (char& c : w) c = letters[random() % letters.size()];
      return w;
    };
    DListtString names, values;
    for (int i = random() % 8; i > 0; --i) {
      std::string name = word(3), value = word(4);
      // A value that shares letters with its own name can set off a cascade
      // that only the cap of ReplaceAll ends; most values here hold none.
      if (random() % 8)
        for (char& c : value) c = name.find(c) == std::string::npos ? c : 'z';
      names.ToTail(new tString(String(name.c_str())));
      values.ToTail(new tString(String(value.c_str())));
    }
    if (random() % 4 == 0) names.ToTail(new tString(String(word(3).c_str())));  // no value
    if (round % 100 == 0) {
      names.ToHead(new tString(String(std::string(1 << 22, 'a').c_str())));
      values.ToHead(new tString(String("v")));
    } else if (round % 20 == 0) {
      std::string every(1 << 15, 'a');
      for (size_t k = 0; k < every.size(); ++k) every[k] = static_cast<char>(1 + k % 255);
      names.ToHead(new tString(String(every.c_str())));
      values.ToHead(new tString(String("v")));
    }
    tSubstitutions substitutions(names, values);
    for (int k = 0; k < 10; ++k) {  // one object serves many texts, as in the output
      String text(word(30).c_str()), expected = text;
      for (int i = 0; i < names.Size() && i < values.Size(); ++i)
        expected.ReplaceAll(names[i]->Text(), values[i]->Text());
      SCOPED_TRACE(text.Text());
      changed += expected != text;
      substitutions.Apply(text);
      ASSERT_STREQ(text.Text(), expected.Text());
    }
  }
  EXPECT_GT(changed, 10000);
}

// Texts and values over the letters of the places, so that values hold
// places, and filling one place completes another around it.
TEST(Fill, OnePassAgreesWithOneReplaceAllPerPlace) {
  std::mt19937 random(9);
  const std::string letters = "${}01RLx";
  auto word = [&](size_t max) {
    std::string w(random() % (max + 1), 'a');
    for (char& c : w) c = letters[random() % letters.size()];
    return w;
  };
  const char* places[] = {"${0}", "${1}", "${0R}", "${1R}", "${L}"};
  int checked = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (int k = random() % 6; k > 0; --k) text += word(5) + places[random() % 5];
    text += word(5);  // "${0x}" or "${1R" at the end: places in form only
    String values[tPlaceFill::Places];
    tPlaceFill fill;
    for (int place = 0; place < tPlaceFill::Places; ++place) {
      values[place] = word(5).c_str();
      if (random() % 4) fill.With[place] = &values[place];
    }
    String whole(text.c_str());
    String expected = FillStepByStep(whole, fill);
    std::string out;
    tFillPlan(whole).Fill(fill, out);
    SCOPED_TRACE(text);
    ASSERT_EQ(out, expected.Text());
    checked += text.find('$') != std::string::npos && out.find("${") != std::string::npos;
  }
  EXPECT_GT(checked, 1000);  // results the one pass must check
}

}  // namespace
