#include "text/dliststr.h"

#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "text/slotpool.h"
#include "text/strblock.h"

namespace {

// Byte order of two texts, as strcmp gives it.
int Compare(const String& a, const String& b) {
  int n = a.Length() < b.Length() ? a.Length() : b.Length();
  int order = std::memcmp(a.Text(), b.Text(), n);
  return order ? order : a.Length() - b.Length();
}

// The pool for elements of the given size: one for tString, one for
// tPrioritizedString; other derived classes use the heap (null).
tSlotPool* StringSlots(size_t size) {
  static tSlotPool plain(sizeof(tString));
  static tSlotPool prioritized(sizeof(tPrioritizedString));
  if (size == sizeof(tString)) return &plain;
  if (size == sizeof(tPrioritizedString)) return &prioritized;
  return nullptr;
}

}  // namespace

void* tString::operator new(size_t size) {
  tSlotPool* pool = StringSlots(size);
  return pool ? pool->Take() : ::operator new(size);
}

void tString::operator delete(void* p, size_t size) {
  if (!p) return;
  tSlotPool* pool = StringSlots(size);
  if (pool) {
    pool->Give(p);
  } else {
    ::operator delete(p);
  }
}

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
void ForEachPiece(const char* text, const char* separators, const char* strip, int skipLeading,
                  const std::function<void(const std::string& piece)>& take) {
  if (!text) return;
  const tByteSet isSeparator(separators);
  const tByteSet isStripped(strip);
  const size_t n = std::strlen(text);
  std::string piece;
  size_t i = 0;
  while (i < n) {
    if (skipLeading) {
      while (i < n && isSeparator.Has(text[i])) ++i;
      if (i == n) break;
    }
    size_t end = i;
    while (end < n && !isSeparator.Has(text[end])) ++end;
    if (end < n) ++end;
    piece.clear();
    for (; i < end; ++i) {
      if (!isStripped.Has(text[i])) piece.push_back(text[i]);
    }
    take(piece);
  }
}

void DListtString::FromString(const char* text, const char* separators, const char* strip,
                              int skipLeading) {
  ForEachPiece(text, separators, strip, skipLeading,
               [this](const std::string& piece) { ToTail(new tString(piece.c_str())); });
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

namespace {

// Lists shorter than this are walked: the walk is as fast, and they need no
// index.
const int kIndexedFrom = 64;

int PriorityOf(const DLink* link) {
  return static_cast<tPrioritizedString*>(link->Object)->Priority;
}

}  // namespace

// Records the last link of each priority in one walk. A list found out of
// order keeps an empty index, which tells ToSorted to walk instead.
void DListtPrioritizedString::Reindex() {
  std::map<int, DLink*>& lastOf = Index->LastOfPriority;
  lastOf.clear();
  Index->Changes = Changes;
  if (!Tail) return;
  DLink* head = Tail->NextLink;
  for (DLink* link = head;; link = link->NextLink) {
    if (link != head && PriorityOf(link->PrevLink) > PriorityOf(link)) {
      lastOf.clear();
      return;
    }
    lastOf[PriorityOf(link)] = link;
    if (link == Tail) return;
  }
}

// The new text goes after the last text whose priority is at most its own. In
// a list kept in order that place is unique, so the index finds it directly;
// the cursor and PastEnd end as the step-by-step walk from the cursor leaves
// them. A list that something else put out of order gets the walk itself,
// whose result there depends on where the cursor stood.
void DListtPrioritizedString::ToSorted(tPrioritizedString* p) {
  if (Count < kIndexedFrom) {
    WalkToPlace(p);
    ToCurrent(p);
    return;
  }
  if (!Index) {
    Index.reset(new tIndex);
    Index->Changes = Changes - 1;
  }
  std::map<int, DLink*>& lastOf = Index->LastOfPriority;
  if (Index->Changes != Changes) Reindex();
  std::map<int, DLink*>::iterator above = lastOf.upper_bound(p->Priority);
  // An element's priority may have been changed in place, which no change
  // count sees: the place found is checked, and the index rebuilt once.
  if (Tail && !lastOf.empty() && !PlaceHolds(above, p->Priority)) {
    Reindex();
    above = lastOf.upper_bound(p->Priority);
  }
  if (!Tail) {
    ToTail(p);
    lastOf.emplace(p->Priority, Tail);
  } else if (lastOf.empty()) {
    WalkToPlace(p);
    ToCurrent(p);
  } else {
    LinkBefore(above, p);
  }
  Index->Changes = Changes;
}

// The literal walk: back while the cursor's text is above p, then forward
// while it is not.
void DListtPrioritizedString::WalkToPlace(const tPrioritizedString* p) {
  if (!Cursor) GotoHead();
  while (Cursor && PriorityOf(Cursor) > p->Priority) Prev();
  if (Cursor) {
    while (Cursor && PriorityOf(Cursor) <= p->Priority) Next();
  }
}

// Whether the index entry before `above` is the last text of its priority and
// the text after it lies above `priority`, or, with no entry before it,
// whether the head does.
bool DListtPrioritizedString::PlaceHolds(std::map<int, DLink*>::iterator above,
                                         int priority) const {
  const std::map<int, DLink*>& lastOf = Index->LastOfPriority;
  if (above == lastOf.begin()) return PriorityOf(Tail->NextLink) > priority;
  std::map<int, DLink*>::iterator at = std::prev(above);
  DLink* last = at->second;
  return PriorityOf(last) == at->first && (last == Tail || PriorityOf(last->NextLink) > priority);
}

// Links p after the last text of the highest priority below `above` (at the
// head when there is none), leaving the cursor and PastEnd as the walk would,
// and records p as the last text of its priority.
void DListtPrioritizedString::LinkBefore(std::map<int, DLink*>::iterator above,
                                         tPrioritizedString* p) {
  std::map<int, DLink*>& lastOf = Index->LastOfPriority;
  if (above == lastOf.begin()) {
    Cursor = Tail->NextLink;
    ToCurrent(p);
    PastEnd = 0;
  } else {
    DLink* last = std::prev(above)->second;
    Cursor = last == Tail ? nullptr : last->NextLink;
    PastEnd = 1;
    ToCurrent(p);
  }
  // `above` is still the first priority above p's, so the entry for p's
  // priority is just before it or goes there: no second search.
  if (above != lastOf.begin() && std::prev(above)->first == p->Priority) {
    std::prev(above)->second = Cursor;
  } else {
    lastOf.emplace_hint(above, p->Priority, Cursor);
  }
}

DListtPrioritizedString::~DListtPrioritizedString() { Clear(); }
