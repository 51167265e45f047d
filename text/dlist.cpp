#include "text/dlist.h"

#include <new>

#include "text/nomem.h"

DList::DList()
    : Tail(nullptr),
      Cursor(nullptr),
      PastEnd(1),
      CacheIndex(0),
      CacheLink(nullptr),
      Count(0),
      Clearing(0),
      Changes(0) {}

DList::~DList() { Clear(); }

DLink* DList::NewLink(tObject* obj, DLink* prev, DLink* next) {
  return new DLink{{}, next, prev, obj};
}

void DList::Destroy(tObject* obj) { delete obj; }

void DList::Changed() {
  CacheLink = nullptr;
  ++Changes;
}

// Links obj in before `before`, or as a ring of one into an empty list (then
// it is the tail and the cursor, past the end). Inserting before the head
// makes obj the head, as the tail's successor. A link that cannot be made is
// an allocation failure, which ends the run.
void DList::Link(tObject* obj, DLink* before) {
  if (!Tail) {
    DLink* link = NewLink(obj, nullptr, nullptr);
    if (!link) AllocationFailed();
    link->NextLink = link->PrevLink = link;
    Tail = Cursor = link;
    PastEnd = 1;
  } else {
    DLink* link = NewLink(obj, before->PrevLink, before);
    if (!link) AllocationFailed();
    before->PrevLink->NextLink = link;
    before->PrevLink = link;
  }
  ++Count;
  Changed();
}

// Takes the link out of the ring and frees it; the caller has already moved
// the cursor off it.
tObject* DList::Unlink(DLink* link) {
  if (link->NextLink == link) {
    Tail = nullptr;
  } else {
    link->PrevLink->NextLink = link->NextLink;
    link->NextLink->PrevLink = link->PrevLink;
    if (link == Tail) Tail = link->PrevLink;
  }
  tObject* obj = link->Object;
  delete link;
  --Count;
  Changed();
  return obj;
}

DLink* DList::Find(tObject* obj) const {
  DLink* link = Head();
  if (!link) return nullptr;
  do {
    if (link->Object == obj) return link;
    link = link->NextLink;
  } while (link != Tail->NextLink);
  return nullptr;
}

void DList::ToTail(tObject* obj) {
  if (!Tail) {
    Link(obj, nullptr);
    return;
  }
  bool pastTail = !Cursor && PastEnd;
  DLink* head = Head();
  Link(obj, head);
  Tail = head->PrevLink;
  if (pastTail) Cursor = Tail;
}

void DList::ToHead(tObject* obj) {
  if (!Tail) {
    Link(obj, nullptr);
    return;
  }
  DLink* oldHead = Head();
  Link(obj, oldHead);
  if (Cursor == oldHead || (!Cursor && !PastEnd)) Cursor = oldHead->PrevLink;
}

void DList::ToCurrent(tObject* obj) {
  if (!Cursor) {
    if (PastEnd) {
      ToTail(obj);
    } else {
      ToHead(obj);
    }
    return;
  }
  Link(obj, Cursor);
  Cursor = Cursor->PrevLink;
}

// The removals leave PastEnd alone when they empty the list.
tObject* DList::GetCurrent() {
  if (!Tail || Clearing || !Cursor) return nullptr;
  DLink* link = Cursor;
  if (link == Tail) {
    Cursor = nullptr;
    if (Count > 1) PastEnd = 1;
  } else {
    Cursor = link->NextLink;
  }
  return Unlink(link);
}

tObject* DList::GetHead() {
  if (!Tail || Clearing) return nullptr;
  DLink* link = Head();
  if (Cursor == link) Cursor = Count > 1 ? link->NextLink : nullptr;
  return Unlink(link);
}

tObject* DList::GetTail() {
  if (!Tail || Clearing) return nullptr;
  DLink* link = Tail;
  if (Cursor == link) {
    Cursor = nullptr;
    if (Count > 1) PastEnd = 1;
  }
  return Unlink(link);
}

tObject* DList::Get(tObject* obj) {
  if (!Tail || Clearing) return nullptr;
  DLink* link = Find(obj);
  if (!link) {
    CacheLink = nullptr;
    return nullptr;
  }
  if (Cursor == link) Cursor = link == Tail ? nullptr : link->NextLink;
  return Unlink(link);
}

void DList::GotoHead() { Cursor = Head(); }

void DList::Next() {
  if (Cursor) {
    Cursor = Cursor == Tail ? nullptr : Cursor->NextLink;
  } else if (!PastEnd) {
    Cursor = Head();
  }
  PastEnd = 1;
}

void DList::Prev() {
  if (Cursor) {
    Cursor = Cursor == Head() ? nullptr : Cursor->PrevLink;
  } else if (PastEnd) {
    Cursor = Tail;
  }
  PastEnd = 0;
}

void DList::NextCircular() {
  Cursor = Cursor ? Cursor->NextLink : Head();
  PastEnd = 1;
}

void DList::PrevCircular() {
  Cursor = Cursor ? Cursor->PrevLink : Tail;
  PastEnd = 0;
}

void DList::Goto(tObject* obj) {
  GotoHead();
  while (Cursor && Cursor->Object != obj) Next();
}

void DList::Goto(int n) {
  GotoHead();
  for (int i = 0; i < n && Cursor; ++i) Next();
}

// Walks from the nearer of the head, the tail and the last link reached, so
// that indexing in ascending or descending order costs one step each.
tObject* DList::operator[](int i) {
  if (Clearing || i < 0 || i >= Count) return nullptr;
  int lowIndex = 0, highIndex = Count - 1;
  DLink* low = Head();
  DLink* high = Tail;
  if (CacheLink) {
    if (i >= CacheIndex) {
      lowIndex = CacheIndex;
      low = CacheLink;
    } else {
      highIndex = CacheIndex;
      high = CacheLink;
    }
  }
  DLink* link;
  if (i - lowIndex < highIndex - i) {
    link = low;
    for (int k = lowIndex; k < i; ++k) link = link->NextLink;
  } else {
    link = high;
    for (int k = highIndex; k > i; --k) link = link->PrevLink;
  }
  CacheLink = link;
  CacheIndex = i;
  return link->Object;
}

// Rotations look at the tail first and then from the head onward.
void DList::RotToHead(tObject* obj) {
  if (!Tail) return;
  DLink* link = Tail->Object == obj ? Tail : Find(obj);
  CacheLink = nullptr;
  if (!link) return;
  Tail = link->PrevLink;
  Changed();
}

void DList::RotToTail(tObject* obj) {
  if (!Tail) return;
  DLink* link = Tail->Object == obj ? Tail : Find(obj);
  CacheLink = nullptr;
  if (!link) return;
  Tail = link;
  Changed();
}

void DList::MoveCurrentToHead() {
  if (tObject* obj = GetCurrent()) ToHead(obj);
  CacheLink = nullptr;
}

void DList::MoveCurrentToTail() {
  if (tObject* obj = GetCurrent()) ToTail(obj);
  CacheLink = nullptr;
}

void DList::MoveToHead(tObject* obj) {
  if (tObject* found = Get(obj)) ToHead(found);
}

void DList::MoveToTail(tObject* obj) {
  if (tObject* found = Get(obj)) ToTail(found);
}

// The ring is detached before any element is destroyed, so an element whose
// destructor calls back into the list sees it empty and reaches no freed link.
// Elements go in the order tail, then head onward.
void DList::Clear() {
  Clearing = 1;
  DLink* tail = Tail;
  Tail = Cursor = nullptr;
  Count = 0;
  Changed();
  if (tail) {
    Destroy(tail->Object);
    for (DLink* link = tail->NextLink; link != tail;) {
      DLink* next = link->NextLink;
      Destroy(link->Object);
      delete link;
      link = next;
    }
    delete tail;
  }
  PastEnd = 1;
  Clearing = 0;
}

// A null element ends the copy. The source's cursor returns to the element it
// was on, or past the tail when it was off the list.
void DList::Copy(DList* other) {
  Clear();
  tObject* current = other->CurrentObject();
  other->GotoHead();
  while (other->Cursor && other->Cursor->Object) {
    ToTail(other->Cursor->Object->Clone());
    other->Next();
  }
  other->Goto(current);
}

void DList::Take(DList* other) {
  Clear();
  if (other == this) return;
  Tail = other->Tail;
  Count = other->Count;
  Cursor = nullptr;
  PastEnd = 1;
  Changed();
  other->Tail = other->Cursor = nullptr;
  other->Count = 0;
  other->Changed();
}
