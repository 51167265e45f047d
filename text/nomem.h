#ifndef RULEFORGE_TEXT_NOMEM_H
#define RULEFORGE_TEXT_NOMEM_H

// Handles an allocation that failed outside operator new (a list link that could
// not be made, a text longer than a block can hold) the way operator new handles
// its own failures: it calls the installed new-handler, which the entry points
// set to end the run; without one it throws std::bad_alloc. Never returns.
[[noreturn]] void AllocationFailed();

#endif
