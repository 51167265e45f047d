#include "text/str.h"

String Digits("0123456789");
