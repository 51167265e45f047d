#ifndef RULEFORGE_RESOLVE_DNSRESOL_H
#define RULEFORGE_RESOLVE_DNSRESOL_H

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "resolve/hostlookup.h"
#include "text/dliststr.h"
#include "text/str.h"

// Turns host names into dotted-quad IPv4 addresses and remembers every answer
// for the rest of the run, so each distinct name is looked up once. A name that
// cannot be resolved is remembered as itself. Owns both cache lists. Names
// announced with Expect can be looked up together, ahead of their Lookup.
class tDNSResolver {
 public:
  DListtString HostNames;
  DListtString HostAddresses;

  String Lookup(const String& name);

  // Notes a text that Lookup will be asked about, so that LookUpExpected can
  // look its name up ahead of time.
  void Expect(const String& name);
  // Looks every expected name up at once, concurrently; Lookup then takes the
  // answers from here. Where no thread can be started nothing happens, and
  // Lookup looks each name up itself as it comes.
  void LookUpExpected();

  // Splits a text into the name to look up and the suffix from its first ';'
  // on, without blanks, tabs and line ends. Returns 1 when the name is to be
  // looked up, 0 when it is an address already (only digits and dots, or
  // empty).
  static int HostPart(const String& name, String& host, String& suffix);

 private:
  // The HostAddresses entry of the first HostNames entry of each name: the
  // same answer as walking the lists from their heads, without the walk.
  // Remember, which alone adds to the lists, adds to it in step.
  std::unordered_map<std::string, tString*> Index;
  // Expected names not yet looked up, in the order they were announced.
  std::vector<std::string> Expected;
  std::unordered_set<std::string> ExpectedSet;
  // Answers looked up ahead whose name Lookup has not met yet.
  std::unordered_map<std::string, tHostAnswer> Answers;

  const tString* Cached(const String& host);
  String Remember(const String& host);
};

// The one resolver while the output is written with resolution on; else null.
extern tDNSResolver* Resolver;

#endif
