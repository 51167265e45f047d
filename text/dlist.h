#ifndef RULEFORGE_TEXT_DLIST_H
#define RULEFORGE_TEXT_DLIST_H

#include <cstddef>

#include "text/slotpool.h"
#include "text/tobject.h"

// One node of a DList. The link points at its element but does not own it.
// Links come from a pool of equal slots: a list of a million entries makes a
// million of them, and the general allocator would spend more on each than the
// list does.
struct DLink : tPooled<DLink> {
  DLink* NextLink;
  DLink* PrevLink;
  tObject* Object;
};

// The program's container: a circular doubly linked list of elements with a
// cursor and an index cache. The list owns its elements and deletes them when it
// is cleared or destroyed; the removal operations hand an element over to the
// caller instead. Where the cursor stands after each operation is part of the
// contract: callers iterate with GotoHead / Current / Next.
class DList {
 public:
  DList();
  DList(const DList&) = delete;
  DList& operator=(const DList&) = delete;
  virtual ~DList();

  virtual DLink* NewLink(tObject* obj, DLink* prev, DLink* next);
  virtual void Destroy(tObject* obj);

  void ToTail(tObject* obj);
  void ToHead(tObject* obj);
  void ToCurrent(tObject* obj);

  tObject* GetCurrent();
  tObject* GetHead();
  tObject* GetTail();
  tObject* Get(tObject* obj);

  void GotoHead();
  void Next();
  void Prev();
  void NextCircular();
  void PrevCircular();
  void Goto(tObject* obj);
  void Goto(int n);

  tObject* operator[](int i);

  void RotToHead(tObject* obj);
  void RotToTail(tObject* obj);
  void MoveCurrentToHead();
  void MoveCurrentToTail();
  void MoveToHead(tObject* obj);
  void MoveToTail(tObject* obj);

  void Clear();
  void Copy(DList* other);
  void Take(DList* other);

  // The number of elements.
  int Size() const { return Count; }
  // The element under the cursor, or null when the cursor is off the list.
  tObject* CurrentObject() const { return Cursor ? Cursor->Object : nullptr; }
  // 1 when the cursor is off the list past the tail, 0 before the head.
  int IsPastEnd() const { return Cursor ? 0 : PastEnd; }
  // The first and last links, or null for an empty list; for read-only walks
  // that leave the cursor alone (see Walk below).
  const DLink* FirstLink() const { return Head(); }
  const DLink* LastLink() const { return Tail; }

 protected:
  DLink* Tail;
  DLink* Cursor;
  unsigned char PastEnd;
  int CacheIndex;
  DLink* CacheLink;
  int Count;
  int Clearing;
  // Counts every change of the ring (insertion, removal, rotation, clearing), so
  // that an index kept beside the list can tell when it has gone stale.
  unsigned long Changes;

 private:
  DLink* Head() const { return Tail ? Tail->NextLink : nullptr; }
  void Link(tObject* obj, DLink* before);
  tObject* Unlink(DLink* link);
  DLink* Find(tObject* obj) const;
  void Changed();
};

// A read-only walk over the elements of a list, head to tail, that leaves the
// list's cursor where it is, so walks may nest and const lists can be walked:
//   for (const tString* text : Walk<const tString>(texts)) ...
// T is the element class the list holds. The list must not gain or lose
// elements during the walk.
template <class T>
class DListWalk {
 public:
  class Iterator {
   public:
    Iterator(const DLink* link, const DLink* last) : At(link), Last(last) {}
    T* operator*() const { return static_cast<T*>(At->Object); }
    Iterator& operator++() {
      At = At == Last ? nullptr : At->NextLink;
      return *this;
    }
    bool operator==(const Iterator& other) const { return At == other.At; }
    bool operator!=(const Iterator& other) const { return At != other.At; }

   private:
    const DLink* At;
    const DLink* Last;
  };

  explicit DListWalk(const DList& list) : List(list) {}
  Iterator begin() const { return Iterator(List.FirstLink(), List.LastLink()); }
  Iterator end() const { return Iterator(nullptr, nullptr); }

 private:
  const DList& List;
};

template <class T>
DListWalk<T> Walk(const DList& list) {
  return DListWalk<T>(list);
}

#endif
