#include "check/hints.h"

#include <strings.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "check/addresses.h"
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

int CanBeNamed(const String& name) { return name.At('"') < 0; }
