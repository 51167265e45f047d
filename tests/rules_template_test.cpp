#include <gtest/gtest.h>

#include <string>

#include "rules/clause.h"
#include "rules/clauslst.h"
#include "testutil.h"

namespace {

// The template read from text, written back in the dump's form; the partner
// follows after "~~".
std::string ReadBack(const std::string& text) {
  TempFile file(text);
  tFilterTemplateFile in(file.Name());
  tClauseTemplate clause;
  clause.Read(in);
  return Captured([&](FILE* out) {
    clause.Write(out);
    if (clause.Partner) {
      std::fputs("~~\n", out);
      clause.Partner->Write(out);
    }
    std::fprintf(out, "fixed=%u rest=%s", clause.Flags, in.Eof() ? "" : in.Line().Text());
  });
}

const char kStrings[] = "\"N\",  \"A\",\"\",\"\",\"\",  \"v0\",\"v1\"\n";

TEST(ClauseTemplate, HeaderLineSpellings) {
  struct Case {
    const char* header;
    const char* written;
  } cases[] = {
      {"~1, 5, s", "~1, 5, S\nt\n"},
      {"~1, 5, single", "~1, 5, S\nt\n"},
      {"~1,5,S", "~1, 5, S\nt\n"},
      {"~2, 5, value", "~2, 5, V\nt\n"},
      {"~ 1 , 1 0 , V", "~1, 10, V\nt\n"},
      {"~9, 0, S", "~3, 0, S\nt\n"},
      {"~-4, 0, V", "~0, 0, V\nt\n"},
      {"~x, y, S", "~0, 0, S\nt\n"},
      {"~0, 99999999999, S", "~0, 2147483647, S\nt\n"},
      {"~0, -99999999999, S", "~0, -2147483648, S\nt\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.header);
    EXPECT_EQ(ReadBack(std::string(kStrings) + c.header + "\nt\n"),
              std::string(kStrings) + c.written + "fixed=0 rest=");
  }
}

TEST(ClauseTemplate, MalformedHeadersEndTheClauseSilently) {
  struct Case {
    const char* body;
    const char* expected;
  } cases[] = {
      {"~0, 5\nleft\n", "fixed=0 rest=left"},
      {"~0, 5, X\nleft\n", "fixed=0 rest=left"},
      {"~0, 5, S\na\n~~~\nb\n", "~0, 5, S\na\nfixed=0 rest=~~~"},
      {"skipped\n~0, 1, V\nx\n", "~0, 1, V\nx\nfixed=0 rest="},
      {"~\n0, 3, S\nx\n", "~0, 3, S\nx\nfixed=0 rest="},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.body);
    EXPECT_EQ(ReadBack(std::string(kStrings) + c.body), std::string(kStrings) + c.expected);
  }
}

TEST(ClauseTemplate, StringsInAnyQuotingAndFixedFlag) {
  struct Case {
    const char* strings;
    const char* written;
  } cases[] = {
      {"'N', `A`, B, '', \"\", x, y\n", "\"N\",  \"A\",\"B\",\"\",\"\",  \"x\",\"y\"\n"},
      {"N A\n\"\" \"\" \"\" v0 v1\n", "\"N\",  \"A\",\"\",\"\",\"\",  \"v0\",\"v1\"\n"},
      {"N, '', '', '', '', a, b\n", "\"N\",  \"\",\"\",\"\",\"\",  \"a\",\"b\"\n"},
      {"", "\"\",  \"\",\"\",\"\",\"\",  \"\",\"\"\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.strings);
    std::string written = ReadBack(c.strings);
    EXPECT_EQ(written.substr(0, written.find("fixed")), c.written);
  }
  EXPECT_NE(ReadBack("N, '', '', '', ''\n").find("fixed=1"), std::string::npos);
  EXPECT_NE(ReadBack("N, '', '', '', L\n").find("fixed=0"), std::string::npos);
}

TEST(ClauseTemplate, TextsStayInPriorityOrderWithTiesInFileOrder) {
  std::string text = std::string(kStrings) +
                     "~0, 20, S\na\n~0, 10, S\nb\n~0, 20, S\nc\n~0, 10, S\nd\n  kept  \n";
  EXPECT_EQ(ReadBack(text), std::string(kStrings) +
                                "~0, 10, S\nb\n~0, 10, S\nd\n  kept  \n~0, 20, S\na\n"
                                "~0, 20, S\nc\nfixed=0 rest=");
}

TEST(ClauseTemplate, PartnerMarker) {
  struct Case {
    const char* body;
    const char* expected;
  } cases[] = {
      {"~0, 1, V\nx\n~~\nP, On, '', '', '', a, b\n~0, 2, V\ny\n",
       "~0, 1, V\nx\n~~\n\"P\",  \"On\",\"\",\"\",\"\",  \"a\",\"b\"\n~0, 2, V\ny\nfixed=0 rest="},
      // A second marker inside the partner ends its reading and creates nothing.
      {"~~\nP, On, '', '', '', a, b\n~~\nQ\n",
       "~~\n\"P\",  \"On\",\"\",\"\",\"\",  \"a\",\"b\"\nfixed=0 rest=Q"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.body);
    EXPECT_EQ(ReadBack(std::string(kStrings) + c.body), std::string(kStrings) + c.expected);
  }
}

TEST(ClauseTemplateList, DropsATrailingNamelessTemplate) {
  TempFile file("~~~\nA, x, '', '', '', a, b\n~~~\n~~~\nB, y, '', '', '', a, b\n~~~\n , ,\n");
  tFilterTemplateFile in(file.Name());
  DListtClauseTemplate list;
  list.Read(in);
  ASSERT_EQ(list.Size(), 2);
  EXPECT_STREQ(static_cast<tClauseTemplate*>(list[1])->Name.Text(), "B");
}

}  // namespace
