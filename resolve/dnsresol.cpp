#include "resolve/dnsresol.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>

#include <cstring>

#include "app/common.h"

tDNSResolver* Resolver = nullptr;

namespace {

// The dotted-quad address of name, or name itself (after a warning).
String Resolve(const String& name) {
  hostent* host = gethostbyname(name.Text());
  if (!host || host->h_addrtype != AF_INET || !host->h_addr_list[0]) {
    Warning(7,
            String("Could not resolve '") + name + "'. Putting unresolved name into filter file");
    return name;
  }
  in_addr address;
  std::memcpy(&address, host->h_addr_list[0], sizeof address);
  return String(inet_ntoa(address));
}

}  // namespace

String tDNSResolver::Lookup(const String& name) {
  String host = name.Strip(" \t\n\r");
  String suffix;
  int semicolon = host.At(';');
  if (semicolon >= 0) suffix = host.Cut(semicolon);

  // Built once: every entry of every resolved place comes through here.
  static const String dotsAndDigits = Digits + ".";
  if (host.AtFirstNotIn(dotsAndDigits.Text()) >= 0) {
    auto known = Index.find(host.Text());
    if (known != Index.end()) {
      host = *known->second;
    } else {
      HostNames.ToTail(new tString(host));
      tString* address = new tString(Resolve(host));
      HostAddresses.ToTail(address);
      Index.emplace(host.Text(), address);
      host = *address;
    }
  }
  host += suffix;
  return host;
}
