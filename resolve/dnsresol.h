#ifndef RULEFORGE_RESOLVE_DNSRESOL_H
#define RULEFORGE_RESOLVE_DNSRESOL_H

#include <string>
#include <unordered_map>

#include "text/dliststr.h"
#include "text/str.h"

// Turns host names into dotted-quad IPv4 addresses and remembers every answer
// for the rest of the run, so each distinct name is looked up once. A name that
// cannot be resolved is remembered as itself. Owns both cache lists.
class tDNSResolver {
 public:
  DListtString HostNames;
  DListtString HostAddresses;

  String Lookup(const String& name);

 private:
  // The HostAddresses entry of each name in HostNames: the same answer as
  // walking the lists from their heads, without the walk.
  std::unordered_map<std::string, tString*> Index;
};

// The one resolver while the output is written with resolution on; else null.
extern tDNSResolver* Resolver;

#endif
