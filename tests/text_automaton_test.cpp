#include "text/automaton.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

// The names the scan finds in text, each through the chain of its found
// state, against a plain search for every name.
void ExpectFindsWhatOccurs(const std::vector<String>& names, const std::string& text) {
  tNameAutomaton automaton(names);
  std::set<int> found;
  automaton.Scan(text.data(), text.size(), [&](int state) {
    for (int at = automaton.FirstFound(state); at >= 0; at = automaton.NextFound(at))
      found.insert(automaton.NamesOf(at).begin(), automaton.NamesOf(at).end());
  });
  std::set<int> occurring;
  for (size_t i = 0; i < names.size(); ++i) {
    if (names[i].Length() > 0 && text.find(names[i].Text()) != std::string::npos)
      occurring.insert(static_cast<int>(i));
  }
  EXPECT_EQ(found, occurring);
}

TEST(NameAutomaton, FindsEveryNameThatOccurs) {
  struct Case {
    std::vector<const char*> names;
    const char* text;
  } cases[] = {
      {{"he", "she", "his", "hers"}, "ushers"},  // names ending inside others
      {{"a", "a", "ab"}, "xab"},                 // equal names both found
      {{"", "x"}, "xx"},                         // an empty name never found
      {{"abc", "bcd", "c"}, "abcd"},             // overlapping occurrences
      {{"aab"}, "aaab"},                         // a fail link back into the name
      {{"zz"}, "abc"},                           // nothing found
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    std::vector<String> names(c.names.begin(), c.names.end());
    ExpectFindsWhatOccurs(names, c.text);
  }
}

// Names over the whole byte range and enough states that the full table does
// not fit: the scan follows the trie's edges instead, with the same answer.
TEST(NameAutomaton, WithoutTheTableFindsTheSame) {
  std::mt19937 random(7);
  for (int states : {50, 30000}) {
    SCOPED_TRACE(states);
    std::vector<String> names;
    std::string text;
    for (int made = 0; made < states; made += 20) {
      std::string name;
      for (int k = 0; k < 20; ++k) name.push_back(static_cast<char>(1 + random() % 255));
      names.push_back(name.c_str());
      if (made % 400 == 0) text += name.substr(3) + name;
    }
    ExpectFindsWhatOccurs(names, text);
  }
}

}  // namespace
