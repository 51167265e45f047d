#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netdb.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/common.h"
#include "app/filterd.h"
#include "output/output.h"
#include "resolve/dnsresol.h"
#include "resolve/hostlookup.h"
#include "rules/lookups.h"
#include "testutil.h"

namespace {

TEST(HostLookup, AnswerIsTheFirstIPv4AddressOfAnEntry) {
  in_addr first, second;
  inet_pton(AF_INET, "10.1.2.3", &first);
  inet_pton(AF_INET, "10.9.9.9", &second);
  char* two[] = {reinterpret_cast<char*>(&first), reinterpret_cast<char*>(&second), nullptr};
  char* none[] = {nullptr};
  hostent ipv4 = {nullptr, nullptr, AF_INET, 4, two};
  hostent ipv6 = {nullptr, nullptr, AF_INET6, 4, two};
  hostent empty = {nullptr, nullptr, AF_INET, 4, none};
  struct Case {
    const char* what;
    const hostent* host;
    int found;
    const char* address;
  } cases[] = {
      {"no entry", nullptr, 0, ""},
      {"two addresses", &ipv4, 1, "10.1.2.3"},
      {"not IPv4", &ipv6, 0, ""},
      {"no address", &empty, 0, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    tHostAnswer answer = AnswerOf(c.host);
    EXPECT_EQ(answer.Found, c.found);
    EXPECT_EQ(answer.Address, c.address);
  }
}

// Answers from the DNS server of tests/dns, looked up by the threads: a name
// with a thousand addresses does not fit the first buffer and is looked up
// again with a larger one; its first address is the answer.
TEST(HostLookup, ThreadsAnswerEveryNameWhateverItsSize) {
  struct Case {
    const char* name;
    int found;
    const char* address;
  } cases[] = {
      {"many1000.up.invalid", 1, "10.202.0.0"},
      {"h258.up.invalid", 1, "10.0.1.2"},
      {"m3.up.invalid", 1, "10.200.0.3"},
      {"down.invalid", 0, ""},
      {"localhost", 1, "127.0.0.1"},
  };
  std::vector<std::string> names;
  for (const Case& c : cases) names.push_back(c.name);
  std::vector<tHostAnswer> answers;
  ASSERT_EQ(LookUpHosts(names, answers), 0);
  ASSERT_EQ(answers.size(), names.size());
  for (size_t i = 0; i < names.size(); ++i) {
    SCOPED_TRACE(cases[i].name);
    EXPECT_EQ(answers[i].Found, cases[i].found);
    EXPECT_EQ(answers[i].Address, cases[i].address);
  }
}

// Each name is asked of the DNS server once per resolver, whether it was
// looked up first, expected first or expected twice before its lookup; texts
// of digits and dots never are. The server logs every query it gets.
TEST(Resolver, AsksTheServerOncePerName) {
  const char* log = std::getenv("RULEFORGE_DNS_LOG");
  ASSERT_NE(log, nullptr);
  tDNSResolver resolver;
  EXPECT_STREQ(resolver.Lookup("h1.up.invalid").Text(), "10.0.0.1");
  for (const char* name : {"h1.up.invalid", "h2.up.invalid", "h2.up.invalid;25", "10.0.0.9"})
    resolver.Expect(name);
  resolver.LookUpExpected();
  resolver.Expect("h2.up.invalid");
  resolver.LookUpExpected();
  EXPECT_STREQ(resolver.Lookup("h2.up.invalid").Text(), "10.0.0.2");
  EXPECT_STREQ(resolver.Lookup(" h1.up.invalid;80").Text(), "10.0.0.1;80");
  EXPECT_EQ(Slurp(log), "h1.up.invalid 1\nh2.up.invalid 1\n");
}

// Reports nothing, like the silent sink, but says it may stop the output part
// way: the output then looks every name up as the expansion meets it.
class tOtherProgress : public tProgress {
 public:
  bool MayStop() const override { return true; }
};

// The names found ahead are exactly the ones the expansion looks up, in the
// same order: variants off, single texts, skipped texts, companions and label
// sets included.
TEST(Resolver, NamesFoundAheadAreTheOnesTheExpansionLooksUp) {
  error = 0;
  tFilterData document(TestData("lookups.tpl").c_str(), 1);
  ASSERT_EQ(document.ReadData(TestData("lookups.flt").c_str()), 0);
  std::vector<std::string> ahead;
  ForEachLookup(document.DataSets, [&](const String& text) {
    String host, suffix;
    if (tDNSResolver::HostPart(text, host, suffix) &&
        std::find(ahead.begin(), ahead.end(), host.Text()) == ahead.end())
      ahead.push_back(host.Text());
  });

  Resolver = new tDNSResolver;
  tOtherProgress progress;
  Captured([&](FILE* out) {
    WriteOutput(out, "", document.DataSets,
                tOutputFrame{"", document.FirstLabel, document.SubstitutionNames,
                             document.SubstitutionValues},
                progress);
  });
  std::vector<std::string> met;
  for (const tString* name : Walk<const tString>(Resolver->HostNames)) met.push_back(name->Text());
  delete Resolver;
  Resolver = nullptr;
  EXPECT_EQ(ahead, met);
  EXPECT_EQ(met.size(), 17u);
}

}  // namespace
