#ifndef RULEFORGE_RESOLVE_HOSTLOOKUP_H
#define RULEFORGE_RESOLVE_HOSTLOOKUP_H

#include <netdb.h>

#include <string>
#include <vector>

// What the system's name lookup said about one name: whether it was found and,
// if so, the dotted-quad text of its first IPv4 address. Plain data, so the
// lookup threads can fill it without touching the program's shared strings.
struct tHostAnswer {
  int Found = 0;
  std::string Address;
};

// The answer a host entry gives: not found when there is no entry, when it is
// not an IPv4 entry or when it lists no address.
tHostAnswer AnswerOf(const hostent* host);

// Looks one name up with gethostbyname, on the calling thread.
tHostAnswer LookUpHost(const char* name);

// Looks every name up once with gethostbyname_r (the same name service path as
// gethostbyname) from a bounded pool of threads, and returns the answers at
// their names' positions. Returns 0, or -1 when not one thread could be started,
// and then nothing has been looked up. The calling thread only waits.
int LookUpHosts(const std::vector<std::string>& names, std::vector<tHostAnswer>& answers);

#endif
