#include "check/hints.h"

#include <strings.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "rules/numbers.h"

namespace {

String Quote(const String& text) { return "\"" + text + "\""; }

// The runs of letters, digits and signs in text: the words of a header line,
// whatever separates them.
std::vector<String> Words(const String& text) {
  std::vector<String> words;
  const char* p = text.Text();
  while (*p) {
    const char* end = p;
    while (*end && (std::isalnum(static_cast<unsigned char>(*end)) || *end == '-' || *end == '+'))
      ++end;
    if (end > p) words.push_back(String(p).Copy(0, static_cast<int>(end - p)));
    p = *end ? end + 1 : end;
  }
  return words;
}

int IsNumber(const String& word) {
  const char* p = word.Text();
  if (*p == '-' || *p == '+') ++p;
  return std::isdigit(static_cast<unsigned char>(*p));
}

int Count(const String& text, char c) {
  int n = 0;
  for (const char* p = text.Text(); *p; ++p) n += *p == c;
  return n;
}

String Decimal(long n) {
  String text;
  text.Make(n);
  return text;
}

// The bytes of a data line before its list or states: "###" and blanks.
int DataPrefix(const char* text) {
  int at = std::strncmp(text, "###", 3) == 0 ? 3 : 0;
  return at + static_cast<int>(std::strspn(text + at, " \t"));
}

// Where the states of a data line begin: after the clause name of a head
// line (quoted, or else one word), else at the front.
int StatesStart(const char* text, int at, int head) {
  const char* p = text + at;
  if (*p && std::strchr("\"'`", *p)) {
    const char* close = std::strchr(p + 1, *p);
    if (close) return static_cast<int>(close + 1 - text);
  }
  return head ? at + static_cast<int>(std::strcspn(p, " \t,")) : at;
}

// Whether a state entry was probably meant as off: a number 0 in any
// writing, or a word for no.
int MeansOff(const String& entry) {
  static const char* const words[] = {"no", "n", "off", "false", "none", "disabled"};
  if (entry.Length() > 0 && entry.AtFirstNotIn("0123456789") < 0)
    return std::atol(entry.Text()) == 0;
  for (const char* word : words)
    if (strcasecmp(entry.Text(), word) == 0) return 1;
  return 0;
}

int SplitGlued(const String& text, int at, int part, String& split, std::vector<char>& failed);

// After a whole address at at: the end of text, or the next address, right
// after it or after a dot or a ';'.
int NextGlued(const String& text, int at, String& split, std::vector<char>& failed) {
  const char* p = text.Text() + at;
  if (!*p) return 1;
  int next = at + (*p == '.' || *p == ';');
  split += ", ";
  return text.Text()[next] != '\0' && SplitGlued(text, next, 0, split, failed);
}

// The 1 to max digits at p that make a number up to limit, tried one length
// after the other; each is appended to split after lead and the search goes
// on with then. split is restored when none leads anywhere.
template <typename Then>
int TryNumbers(const char* p, int max, int limit, const char* lead, String& split, Then then) {
  int size = split.Length();
  for (int length = 1; length <= max && std::isdigit(static_cast<unsigned char>(p[length - 1]));
       ++length) {
    if (std::atoi(String(p).Head(length).Text()) > limit) break;
    split = split.Head(size) + lead + String(p).Head(length);
    if (then(length)) return 1;
  }
  split = split.Head(size);
  return 0;
}

// Reads text from at on as whole addresses, each with an optional ";bits"
// suffix, of which the current one has part numbers already, and appends them
// to split joined by ", ". failed marks the (position, part) pairs known to
// lead nowhere, which keeps the search linear in the length of text.
int SplitGlued(const String& text, int at, int part, String& split, std::vector<char>& failed) {
  const char* p = text.Text() + at;
  size_t mark = static_cast<size_t>(at) * 5 + static_cast<size_t>(part);
  if (failed[mark]) return 0;
  int found = 0;
  if (part == 4) {
    // A ';' is taken as a list separator before it is taken as ";bits".
    int size = split.Length();
    found = NextGlued(text, at, split, failed);
    if (!found) split = split.Head(size);
    if (!found && *p == ';') {
      found = TryNumbers(p + 1, 2, 32, ";", split, [&](int length) {
        return NextGlued(text, at + 1 + length, split, failed);
      });
    }
  } else if (part == 0 || *p == '.') {
    int start = at + (part > 0);
    found = TryNumbers(text.Text() + start, 3, 255, part > 0 ? "." : "", split, [&](int length) {
      return SplitGlued(text, start + length, part + 1, split, failed);
    });
  }
  failed[mark] = !found;
  return found;
}

}  // namespace

String HeaderHint(const String& fields) {
  std::vector<String> numbers;
  String kind;
  for (const String& word : Words(fields)) {
    if (IsNumber(word)) {
      numbers.push_back(word);
    } else if (kind.Length() == 0) {
      kind = word;
    }
  }
  int variant = numbers.size() >= 2 ? ToPriority(numbers[0].Text()) : 0;
  variant = variant < 0 ? 0 : variant > 3 ? 3 : variant;
  String priority = numbers.empty() ? String("0") : Decimal(ToPriority(numbers.back().Text()));
  if (numbers.size() >= 2) priority = Decimal(ToPriority(numbers[1].Text()));
  String head = "~" + Decimal(variant) + ", " + priority + ", ";
  char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(kind.Text()[0])));
  if (letter == 'S' || letter == 'V') return Quote(head + String(kind).ToUpper().Head(1));
  return Quote(head + "S") + " or " + Quote(head + "V");
}

const char* MeantSection(const String& name) {
  static const char* const known[] = {"Substitutions", "Main Rules", "Label Rules"};
  const char* p = name.Text();
  while (*p == ' ' || *p == '\t') ++p;
  for (const char* candidate : known) {
    size_t n = std::strlen(candidate);
    if (strncasecmp(p, candidate, n) != 0) continue;
    const char* rest = p + n;
    while (*rest == ' ' || *rest == '\t') ++rest;
    if (!*rest) return candidate;
  }
  return nullptr;
}

String HeadName(const String& line) {
  const char* text = line.Text();
  int at = DataPrefix(text);
  int end = StatesStart(text, at, 0);
  if (end > at) return line.Copy(at + 1, end - at - 2);
  return line.Copy(at, static_cast<int>(std::strcspn(text + at, " \t,")));
}

String OffStates(const tClauseTemplate& clause) {
  bool off[4] = {false, false, false, false};
  int fields = 0;
  for (int i = 0; i < 4; ++i) {
    int field = StateField(clause, i);
    if (field < 0) continue;
    off[field] = true;
    fields = field + 1 > fields ? field + 1 : fields;
  }
  String states;
  for (int field = 0; field < fields; ++field) {
    if (field > 0) states += ", ";
    if (off[field]) states += "0";
  }
  return states;
}

String StatesHint(const String& head, const tClauseTemplate* clause) {
  int end = head.Length();
  while (end > 0 && std::strchr(" \t,", head.Text()[end - 1])) --end;
  return Quote(head.Head(end) + ", " + (clause ? OffStates(*clause) : String("0")));
}

String StateEntriesHint(const String& line, int head) {
  const char* text = line.Text();
  int prefix = DataPrefix(text);
  int start = StatesStart(text, prefix, head);
  // A companion's line holds states only: a quoted name pasted in front of
  // them is dropped.
  String hint = line.Head(head ? start : prefix);
  const char* p = text + start;
  if (!head) p += std::strspn(p, " \t,");
  while (*p) {
    size_t gap = std::strspn(p, " \t,");
    hint += String(p).Head(static_cast<int>(gap));
    p += gap;
    size_t length = std::strcspn(p, " \t,");
    if (length == 0) break;
    String entry = String(p).Head(static_cast<int>(length));
    hint += MeansOff(entry) ? "0" : "1";
    p += length;
  }
  return Quote(hint);
}

String ListHint(const String& line) {
  const char* text = line.Text();
  int start = DataPrefix(text);
  String entries;
  for (const char* p = text + start; *p;) {
    p += std::strspn(p, " \t,");
    String piece = String(p).Head(static_cast<int>(std::strcspn(p, " \t,")));
    p += piece.Length();
    // A ";bits" suffix of a network stays with its address.
    const char* separators = HoldsSeparators(piece) ? ";" : "";
    for (const char* q = piece.Text(); *q;) {
      q += std::strspn(q, separators);
      int length = static_cast<int>(std::strcspn(q, separators));
      if (length == 0) break;
      if (entries.Length() > 0) entries += ", ";
      entries += String(q).Head(length);
      q += length;
    }
  }
  return Quote(line.Head(start) + entries);
}

int HoldsSeparators(const String& entry) {
  int first = entry.At(';');
  if (first < 0) return 0;
  if (entry.At(';', first + 1) >= 0) return 1;
  const char* bits = entry.Text() + first + 1;
  size_t digits = std::strspn(bits, "0123456789");
  return digits == 0 || digits > 2 || bits[digits] != '\0' || std::atoi(bits) > 32;
}

int IsAddress(const String& text) {
  const char* p = text.Text();
  for (int part = 0; part < 4; ++part) {
    if (part > 0 && *p++ != '.') return 0;
    int digits = static_cast<int>(std::strspn(p, "0123456789"));
    if (digits < 1 || digits > 3 || std::atoi(p) > 255) return 0;
    p += digits;
  }
  if (*p != ';') return *p == '\0';
  return !HoldsSeparators(text);
}

int SplitAddress(const String& entry) {
  const char* p = entry.Text() + std::strspn(entry.Text(), " \t");
  String first = String(p).Head(static_cast<int>(std::strcspn(p, " \t")));
  return IsAddress(entry.Strip(" \t")) && !IsAddress(first);
}

String JoinedAddresses(const String& line) {
  const char* text = line.Text();
  String joined = line.Head(DataPrefix(text));
  for (const char* p = text + joined.Length(); *p;) {
    String entry = String(p).Head(static_cast<int>(std::strcspn(p, ",")));
    joined += SplitAddress(entry) ? entry.Strip(" \t") : entry;
    p += entry.Length();
    if (*p) joined += String(p++).Head(1);
  }
  return joined;
}

int GluedAddresses(const String& entry, String& split) {
  if (entry.Length() == 0 || entry.AtFirstNotIn("0123456789.;") >= 0 || entry.At('.') < 0) return 0;
  String found;
  std::vector<char> failed((static_cast<size_t>(entry.Length()) + 1) * 5, 0);
  if (!SplitGlued(entry, 0, 0, found, failed)) return 0;
  // Addresses that only ';' separates are separators, not addresses run
  // together: each ';' of the entry is either one of those or a ";bits".
  int addresses = Count(found, ',') + 1;
  int separators = Count(entry, ';') - Count(found, ';');
  if (separators >= addresses - 1) return 0;
  split = found;
  return 1;
}

int CanBeNamed(const String& name) { return name.At('"') < 0; }
