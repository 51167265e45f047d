#include "resolve/dnsresol.h"

#include <utility>

#include "app/common.h"

tDNSResolver* Resolver = nullptr;

int tDNSResolver::HostPart(const String& name, String& host, String& suffix) {
  host = name.Strip(" \t\n\r");
  suffix = Empty;
  int semicolon = host.At(';');
  if (semicolon >= 0) suffix = host.Cut(semicolon);
  // Built once: every entry of every resolved place comes through here.
  static const String dotsAndDigits = Digits + ".";
  return host.AtFirstNotIn(dotsAndDigits.Text()) >= 0;
}

String tDNSResolver::Lookup(const String& name) {
  String host, suffix;
  if (HostPart(name, host, suffix)) {
    const tString* known = Cached(host);
    host = known ? String(*known) : Remember(host);
  }
  host += suffix;
  return host;
}

const tString* tDNSResolver::Cached(const String& host) {
  auto known = Index.find(host.Text());
  return known == Index.end() ? nullptr : known->second;
}

String tDNSResolver::Remember(const String& host) {
  HostNames.ToTail(new tString(host));
  tHostAnswer answer;
  auto ahead = Answers.find(host.Text());
  if (ahead != Answers.end()) {
    answer = std::move(ahead->second);
    Answers.erase(ahead);
  } else {
    answer = LookUpHost(host.Text());
  }
  // An answer looked up ahead is the one this lookup would have got, and its
  // warning is printed here, where the lookup would have been made, so the
  // output and the order of the warnings are those of looking names up one by
  // one as the expansion meets them.
  String result = host;
  if (answer.Found) {
    result = answer.Address.c_str();
  } else {
    Warning(7,
            String("Could not resolve '") + host + "'. Putting unresolved name into filter file");
  }
  tString* address = new tString(result);
  HostAddresses.ToTail(address);
  Index.emplace(host.Text(), address);
  return result;
}

void tDNSResolver::Expect(const String& name) {
  String host, suffix;
  if (!HostPart(name, host, suffix)) return;
  std::string key = host.Text();
  if (Cached(host) || Answers.count(key) || !ExpectedSet.insert(key).second) return;
  Expected.push_back(std::move(key));
}

void tDNSResolver::LookUpExpected() {
  std::vector<tHostAnswer> answers;
  if (LookUpHosts(Expected, answers) == 0) {
    for (size_t i = 0; i < Expected.size(); ++i) Answers[Expected[i]] = std::move(answers[i]);
  }
  Expected.clear();
  ExpectedSet.clear();
}
