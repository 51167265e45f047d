#include "update/cleanup.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstring>
#include <new>

#include "app/common.h"

namespace {

const int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

// What a handler may read at any moment: Named is set last and cleared first.
volatile sig_atomic_t Named = 0;
int Folder = -1;
char Name[64];

void RemoveTemporary() {
  if (Named) unlinkat(Folder, Name, 0);
  Named = 0;
}

// Runs the signal's own action once the file is gone, so the run ends as the
// signal would have ended it.
void OnSignal(int signal) {
  RemoveTemporary();
  ::signal(signal, SIG_DFL);
  raise(signal);
}

void OnOutOfMemory() {
  RemoveTemporary();
  OutOfMemory();
}

sigset_t HeldSignals() {
  sigset_t set;
  sigemptyset(&set);
  for (int signal : kSignals) sigaddset(&set, signal);
  return set;
}

}  // namespace

void InstallCleanup() {
  std::set_new_handler(OnOutOfMemory);
  struct sigaction action;
  std::memset(&action, 0, sizeof action);
  action.sa_handler = OnSignal;
  action.sa_mask = HeldSignals();
  for (int signal : kSignals) {
    struct sigaction old;
    // A signal ignored by whoever started the run stays ignored (nohup).
    if (sigaction(signal, nullptr, &old) == 0 && old.sa_handler == SIG_IGN) continue;
    sigaction(signal, &action, nullptr);
  }
}

void RemoveOnAbort(int folder, const char* name) {
  Named = 0;
  if (!name || std::strlen(name) >= sizeof Name) return;
  Folder = folder;
  std::strcpy(Name, name);
  Named = 1;
}

tSignalsHeld::tSignalsHeld() {
  sigset_t set = HeldSignals();
  sigprocmask(SIG_BLOCK, &set, nullptr);
}

tSignalsHeld::~tSignalsHeld() {
  sigset_t set = HeldSignals();
  sigprocmask(SIG_UNBLOCK, &set, nullptr);
}
