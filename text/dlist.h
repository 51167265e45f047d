#ifndef RULEFORGE_TEXT_DLIST_H
#define RULEFORGE_TEXT_DLIST_H

#include "text/tobject.h"

// One node of a DList. The link points at its element but does not own it.
struct DLink {
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

#endif
