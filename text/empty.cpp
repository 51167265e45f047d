#include "text/str.h"

String Empty;
