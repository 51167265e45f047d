#include "text/nomem.h"

#include <new>

void AllocationFailed() {
  if (std::new_handler handler = std::get_new_handler()) handler();
  throw std::bad_alloc();
}
