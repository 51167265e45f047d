#include "check/lookups.h"

#include "check/addresses.h"
#include "check/records.h"
#include "resolve/dnsresol.h"
#include "resolve/entry.h"
#include "text/dlist.h"

namespace {

// The host part of the entry as the resolver sees it, without the ";bits"
// suffix; empty when the entry never reaches the resolver.
String AsLookedUp(const String& entry, int place) {
  String form, host, suffix;
  if (EntryToResolve(entry, place, form) != EntryLookedUp) return Empty;
  tDNSResolver::HostPart(form, host, suffix);
  return host;
}

// Whether text, which has a digit and goes to name lookup (it holds more than
// digits and dots), looks like an address or a network, whose lookup fails:
// it has no letter (10.0.0.0/8, 10.1.0.1:25, 10.1.0.1-10.1.0.9), or begins
// with a digit and holds a character no host name has (10.1.0.1:smtp).
// A name such as 3com.example is left alone.
int LooksLikeAddress(const String& text) {
  static const char* const letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  static const String nameCharacters = String(letters) + "0123456789.-";
  if (text.AtFirstIn(letters) < 0) return 1;
  char first = text.Text()[0];
  return first >= '0' && first <= '9' && text.AtFirstNotIn(nameCharacters.Text()) >= 0;
}

void CheckEntries(const DListtString& entries, int place, int line, tFindings& findings) {
  for (const tString* entry : Walk<const tString>(entries)) {
    String text = AsLookedUp(*entry, place);
    if (text.Length() == 0 || text.AtFirstIn("0123456789") < 0) continue;
    String split;
    if (text.AtFirstNotIn("0123456789.") < 0) {
      // Addresses run together have their finding among the entries.
      if (!IsAddress(text) && !GluedAddresses(*entry, split))
        findings.Add(line, "entry " + Quoted(*entry) +
                               " is taken as an address as it stands, but it is no valid address");
    } else if (LooksLikeAddress(text)) {
      findings.Add(line, "entry " + Quoted(*entry) +
                             " looks like an address or a network but goes to name lookup, which "
                             "fails (write a network as address;bits, as in 10.0.0.0;8)");
    }
  }
}

void CheckRecord(const tClauseData& record, const tCheckNotes& notes, tFindings& findings) {
  int uses[2] = {0, 0};
  record.ResolvedPlaces(uses);
  if (uses[0]) CheckEntries(record.Values0, 0, notes.LineOf(&record.Values0), findings);
  if (uses[1]) CheckEntries(record.Values1, 1, notes.LineOf(&record.Values1), findings);
}

}  // namespace

void CheckLookups(tFilterData& document, const tCheckNotes& notes, tFindings& findings) {
  ForEachRecord(document, [&](const tClauseData& record) { CheckRecord(record, notes, findings); });
}
