#ifndef RULEFORGE_TEXT_SLOTPOOL_H
#define RULEFORGE_TEXT_SLOTPOOL_H

#include <cstddef>
#include <new>
#include <vector>

// Fixed-size slots carved from large chunks; a freed slot goes on a free list
// for the next allocation. Owns the chunks and returns them when it is
// destroyed at exit, unless a slot is still in use then. The objects of a
// large run (list links, short texts, list elements) come from pools like this
// one: a slot costs no allocator header and taking or giving one back is a
// few instructions, where the general allocator spends far more on each.
// Built with RULEFORGE_PLAIN_SLOTS (the sanitizer and fuzz builds), every slot
// is a plain allocation of its own, so that AddressSanitizer sees each object's
// bounds and lifetime.
class tSlotPool {
 public:
  explicit tSlotPool(size_t size)
      : Size(size < sizeof(void*) ? sizeof(void*) : size),
        Free(nullptr),
        Left(0),
        Next(nullptr),
        Live(0) {}
  tSlotPool(const tSlotPool&) = delete;
  tSlotPool& operator=(const tSlotPool&) = delete;
  ~tSlotPool() {
    if (Live != 0) return;
    for (char* chunk : Chunks) ::operator delete(chunk);
  }

  // A slot of the pool's size; a chunk that cannot be had fails as operator
  // new does (through the new-handler).
  void* Take() {
    ++Live;
#ifdef RULEFORGE_PLAIN_SLOTS
    return ::operator new(Size);
#else
    if (Free) {
      tFree* slot = Free;
      Free = slot->Next;
      return slot;
    }
    if (Left == 0) {
      Chunks.reserve(Chunks.size() + 1);
      Next = static_cast<char*>(::operator new(kSlots* Size));
      Chunks.push_back(Next);
      Left = kSlots;
    }
    void* slot = Next;
    Next += Size;
    --Left;
    return slot;
#endif
  }

  void Give(void* p) {
    --Live;
#ifdef RULEFORGE_PLAIN_SLOTS
    ::operator delete(p);
#else
    tFree* slot = static_cast<tFree*>(p);
    slot->Next = Free;
    Free = slot;
#endif
  }

 private:
  struct tFree {
    tFree* Next;
  };
  static const size_t kSlots = 4096;
  const size_t Size;
  // Unused when every slot is a plain allocation.
  [[maybe_unused]] tFree* Free;
  [[maybe_unused]] size_t Left;
  [[maybe_unused]] char* Next;
  long Live;
  std::vector<char*> Chunks;
};

// Gives a class T operator new and delete from one pool of T-sized slots;
// a class derived from T of another size gets the general allocator. T
// derives from tPooled<T>; a pooled class derived from a pooled one names
// its own pool's operators with using-declarations.
template <class T>
class tPooled {
 public:
  static void* operator new(size_t size) {
    return size == sizeof(T) ? Pool().Take() : ::operator new(size);
  }
  static void operator delete(void* p, size_t size) {
    if (!p) return;
    if (size == sizeof(T)) {
      Pool().Give(p);
    } else {
      ::operator delete(p);
    }
  }

 private:
  static tSlotPool& Pool() {
    static tSlotPool pool(sizeof(T));
    return pool;
  }
};

#endif
