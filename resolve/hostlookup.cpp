#include "resolve/hostlookup.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <atomic>
#include <cerrno>
#include <system_error>
#include <thread>

namespace {

// Enough threads that a thousand names behind a resolver answering in 20 ms
// take a fraction of a second, few enough not to flood it. A build that must
// look names up one after the other (to measure the difference) sets it to 0.
#ifdef RULEFORGE_SERIAL_LOOKUPS
const size_t kPoolSize = 0;
#else
const size_t kPoolSize = 64;
#endif

tHostAnswer LookUpHostReentrant(const char* name) {
  std::vector<char> buffer(8192);
  hostent entry;
  hostent* found = nullptr;
  int failure = 0;
  // The buffer holds the entry's names and addresses; a host with very many
  // gets a larger one and the same lookup again.
  while (gethostbyname_r(name, &entry, buffer.data(), buffer.size(), &found, &failure) == ERANGE)
    buffer.resize(buffer.size() * 2);
  return AnswerOf(found);
}

}  // namespace

tHostAnswer AnswerOf(const hostent* host) {
  tHostAnswer answer;
  if (!host || host->h_addrtype != AF_INET || !host->h_addr_list[0]) return answer;
  char text[INET_ADDRSTRLEN];
  // inet_ntop writes the same dotted quad as inet_ntoa, into a buffer of the
  // caller's instead of one shared by every thread.
  if (!inet_ntop(AF_INET, host->h_addr_list[0], text, sizeof text)) return answer;
  answer.Found = 1;
  answer.Address = text;
  return answer;
}

tHostAnswer LookUpHost(const char* name) { return AnswerOf(gethostbyname(name)); }

int LookUpHosts(const std::vector<std::string>& names, std::vector<tHostAnswer>& answers) {
  std::vector<tHostAnswer> found(names.size());
  std::atomic<size_t> next(0);
  auto work = [&] {
    for (size_t i = next++; i < names.size(); i = next++)
      found[i] = LookUpHostReentrant(names[i].c_str());
  };
  size_t wanted = names.size() < kPoolSize ? names.size() : kPoolSize;
  std::vector<std::thread> pool;
  pool.reserve(wanted);
  for (size_t i = 0; i < wanted; ++i) {
    // The threads started so far share out all the names between them, so a
    // thread that cannot be started only makes the pool smaller.
    try {
      pool.emplace_back(work);
    } catch (const std::system_error&) {
      break;
    }
  }
  if (pool.empty() && !names.empty()) return -1;
  for (std::thread& thread : pool) thread.join();
  answers.swap(found);
  return 0;
}
