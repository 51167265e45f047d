#ifndef RULEFORGE_RESOLVE_ENTRY_H
#define RULEFORGE_RESOLVE_ENTRY_H

#include "text/str.h"

// What an entry of a value place becomes in a resolved place (${0R}, ${1R})
// before any lookup.
enum tEntryForm {
  EntryNone,        // empty: the entry gets no resolved form at all
  EntryAnyAddress,  // "*" alone: any address, "0;0", never looked up
  EntryLookedUp,    // the rest: each '*' a '0', the result handed to Lookup
};

// Sets form to what entry becomes and returns which case it is. The entries of
// the second place (stripBlanks) first lose their blanks, tabs and line ends.
// Inline: it runs for every entry of every resolved place.
inline tEntryForm EntryToResolve(const String& entry, int stripBlanks, String& form) {
  if (stripBlanks) {
    form = entry.Strip(" \t\n\r");
  } else {
    form = entry;
  }
  if (form.Length() == 0) return EntryNone;
  if (form == "*") {
    static const String anyAddress("0;0");
    form = anyAddress;
    return EntryAnyAddress;
  }
  form.ReplaceAll("*", "0");
  return EntryLookedUp;
}

#endif
