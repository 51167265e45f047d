#include "resolve/entry.h"

tEntryForm EntryToResolve(const String& entry, int stripBlanks, String& form) {
  static const String anyAddress("0;0");
  form = stripBlanks ? entry.Strip(" \t\n\r") : entry;
  if (form.Length() == 0) return EntryNone;
  if (form == "*") {
    form = anyAddress;
    return EntryAnyAddress;
  }
  form.ReplaceAll("*", "0");
  return EntryLookedUp;
}
