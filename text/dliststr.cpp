#include "text/dliststr.h"

#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "text/strblock.h"

namespace {

// Byte order of two texts, as strcmp gives it.
int Compare(const String& a, const String& b) {
  int n = a.Length() < b.Length() ? a.Length() : b.Length();
  int order = std::memcmp(a.Text(), b.Text(), n);
  return order ? order : a.Length() - b.Length();
}

}  // namespace

tString::tString() {}

tString::tString(const char* s) : String(s) {}

tString::tString(const String& s) : String(s) {}

tString::tString(const tString& o) : String(o), tObject() {}

int tString::Greater(tObject* other) { return Compare(*this, *static_cast<tString*>(other)) > 0; }

int tString::Equals(tObject* other) { return *this == *static_cast<tString*>(other); }

tObject* tString::Clone() { return new tString(*this); }

tString::~tString() {}

tPrioritizedString::tPrioritizedString() : Priority(0) {}

tPrioritizedString::tPrioritizedString(const String& s, int priority)
    : tString(s), Priority(priority) {}

tPrioritizedString::tPrioritizedString(const tPrioritizedString& o)
    : tString(o), Priority(o.Priority) {}

int tPrioritizedString::Greater(tObject* other) {
  return Priority > static_cast<tPrioritizedString*>(other)->Priority;
}

int tPrioritizedString::Equals(tObject* other) {
  return Priority == static_cast<tPrioritizedString*>(other)->Priority;
}

tObject* tPrioritizedString::Clone() { return new tPrioritizedString(*this); }

tPrioritizedString::~tPrioritizedString() {}

tString* DListtString::Current() const { return static_cast<tString*>(CurrentObject()); }

tString* DListtString::operator[](int i) { return static_cast<tString*>(DList::operator[](i)); }

// Scans with an index instead of cutting pieces off the front of a work copy,
// so a long line with many entries splits in linear time. A piece runs up to
// and including its separator; the strip set then removes characters anywhere
// in it, the separator among them when the set holds it.
tPieceRule::tPieceRule(const char* separators, const char* strip, int skipLeading)
    : Separator(), Stripped(), SkipLeading(skipLeading) {
  for (; *separators; ++separators) Separator[static_cast<unsigned char>(*separators)] = true;
  for (; *strip; ++strip) Stripped[static_cast<unsigned char>(*strip)] = true;
}

void DListtString::FromString(const char* text, const char* separators, const char* strip,
                              int skipLeading) {
  FromString(text, tPieceRule(separators, strip, skipLeading));
}

void DListtString::FromString(const char* text, const tPieceRule& rule) {
  rule.ForEach(text, [this](const std::string& piece, const char*, bool) {
    ToTail(new tString(piece.c_str()));
  });
}

// Joins in a buffer sized once instead of growing the text element by element;
// the cursor ends where the step-by-step walk leaves it, past the tail.
String DListtString::ToString(const char* separator, int trailing) {
  GotoHead();
  if (!Cursor) return String();
  const size_t gap = std::strlen(separator);
  size_t length = 0;
  for (const tString* s : Walk<const tString>(*this)) length += s->Length() + gap;
  std::string joined;
  joined.reserve(length);
  for (const tString* s : Walk<const tString>(*this)) {
    joined.append(s->Text(), s->Length());
    if (s != LastLink()->Object || trailing) joined.append(separator, gap);
  }
  Cursor = nullptr;
  PastEnd = 1;
  return String(joined.c_str());
}

DListtString::~DListtString() { Clear(); }

DListtPrioritizedString::DListtPrioritizedString() {}

tPrioritizedString* DListtPrioritizedString::Current() const {
  return static_cast<tPrioritizedString*>(CurrentObject());
}

// The walk from the cursor: back while the cursor's text is above p, then
// forward while it is not; p goes in where the walk stops.
void DListtPrioritizedString::ToSorted(tPrioritizedString* p) {
  auto priorityOf = [](const DLink* link) {
    return static_cast<tPrioritizedString*>(link->Object)->Priority;
  };
  if (!Cursor) GotoHead();
  while (Cursor && priorityOf(Cursor) > p->Priority) Prev();
  if (Cursor) {
    while (Cursor && priorityOf(Cursor) <= p->Priority) Next();
  }
  ToCurrent(p);
}

DListtPrioritizedString::~DListtPrioritizedString() { Clear(); }
