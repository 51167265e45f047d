#include "output/writeerr.h"

#include "app/common.h"

int WriteFailed(const char* shownName) {
  Error(8, String("Error writing to '") + shownName + "'. Disk may be full !");
  return -1;
}
