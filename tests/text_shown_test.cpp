#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "text/shown.h"
#include "text/str.h"

namespace {

TEST(Shown, EscapesControlCharactersOnly) {
  const std::pair<std::string, std::string> cases[] = {
      {"plain text", "plain text"}, {"tab\tstays", "tab\tstays"},
      {"\x1b[2J", "\\x1b[2J"},      {"a\rb\nc\x7f", "a\\x0db\\x0ac\\x7f"},
      {"\x01\x1f", "\\x01\\x1f"},   {"\xc3\xa9 \x80", "\xc3\xa9 \x80"},  // bytes above 0x7f stay
      {"\\x1b", "\\x1b"},  // a written escape is left as it is
  };
  for (const auto& c : cases) {
    String shown = Shown(c.first.c_str());
    EXPECT_EQ(shown.Text(), c.second) << c.first;
    EXPECT_EQ(Shown(shown).Text(), c.second) << "applied twice: " << c.first;
    EXPECT_EQ(HasControls(c.first.c_str()), c.first != c.second) << c.first;
  }
}

// What a line read tells beside its text: a NUL byte, and the line ends that
// it hid, which the next physical line's number must count.
TEST(StringRead, FgetsSaysWhatTheTextHides) {
  const std::string x600(600, 'x'), q509(509, 'q');
  struct tCase {
    std::string input;
    std::vector<std::pair<int, int>> reads;  // NulBytes, Joined per line
  };
  const tCase cases[] = {
      {"a\nb\n", {{0, 0}, {0, 0}}},
      {std::string("a\0b\nc\nd\n", 8), {{1, 1}, {0, 0}}},
      {std::string("\0\n\0\ny\n", 6), {{1, 2}}},
      {x600 + std::string("\0y\nz\n", 5), {{1, 1}}},
      {q509 + std::string("\0\nw\n", 4), {{1, 1}}},  // the read fills the buffer
      {std::string("a\0", 2) + x600 + "\nw\n", {{1, 0}, {0, 0}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.input.substr(0, 12) + " (" + std::to_string(c.input.size()) + " bytes)");
    FILE* f = std::tmpfile();
    std::fwrite(c.input.data(), 1, c.input.size(), f);
    std::rewind(f);
    String line;
    for (const auto& expected : c.reads) {
      String::tLineRead read;
      line.fgets(f, &read);
      EXPECT_EQ(read.NulBytes, expected.first);
      EXPECT_EQ(read.Joined, expected.second);
    }
    std::fclose(f);
  }
}

}  // namespace
