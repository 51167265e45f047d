#include "text/str.h"

#include <cstddef>
#include <cstring>
#include <new>

#include "text/slotpool.h"
#include "text/strblock.h"

namespace {

// Blocks of at most this many bytes (header, text and NUL) come from pools of
// 16, 32, 48 and 64-byte slots: most texts of a run are short, and a slot costs
// neither an allocator header nor an allocator call.
const size_t kPooledBytes = 64;
const size_t kPoolStep = 16;

tSlotPool& BlockSlots(size_t bytes) {
  static tSlotPool pools[kPooledBytes / kPoolStep] = {tSlotPool(16), tSlotPool(32), tSlotPool(48),
                                                      tSlotPool(64)};
  return pools[(bytes - 1) / kPoolStep];
}

}  // namespace

String::String() { Block = NewBlock(nullptr, 0, 0); }

String::String(const char* s) : Block(nullptr) { Make(s); }

String::String(const String& o) : Block(nullptr) { Share(o); }

String::String(tBlock* adopted, tAdopt) : Block(adopted) {}

String::~String() {
  Release(Block);
  Block = nullptr;
}

// The one block of every text that is empty and has no room: a default String
// and every empty copy share it, so they cost no allocation. Its holder count
// stands at the maximum and never moves, so a change always gives the changed
// string a block of its own, and Release never frees it.
String::tBlock* String::SharedEmpty() {
  struct tEmpty {
    tBlock Header;
    char Nul;
  };
  static_assert(offsetof(tEmpty, Nul) == sizeof(tBlock), "the NUL must follow the header");
  static tEmpty empty = {{MaxRefs, 0, 0}, '\0'};
  return &empty.Header;
}

// A block of a pooled size gets the whole slot as its room, so the Capacity
// alone tells Release where the block came from.
String::tBlock* String::NewBlock(const char* s, int n, int capacity) {
  if (n < 0 || capacity < n || capacity > MaxLength) AllocationFailed();
  if (capacity == 0) return SharedEmpty();
  size_t bytes = sizeof(tBlock) + static_cast<size_t>(capacity) + 1;
  void* memory;
  if (bytes <= kPooledBytes) {
    bytes = (bytes + kPoolStep - 1) / kPoolStep * kPoolStep;
    memory = BlockSlots(bytes).Take();
    capacity = static_cast<int>(bytes - sizeof(tBlock) - 1);
  } else {
    memory = ::operator new(bytes);
  }
  tBlock* b = new (memory) tBlock{1, n, capacity};
  if (n > 0) std::memcpy(b->Chars(), s, n);
  b->Chars()[n] = '\0';
  return b;
}

void String::Release(tBlock* b) {
  if (!b || b == SharedEmpty() || --b->Refs != 0) return;
  size_t bytes = sizeof(tBlock) + static_cast<size_t>(b->Capacity) + 1;
  if (bytes <= kPooledBytes) {
    BlockSlots(bytes).Give(b);
  } else {
    ::operator delete(b);
  }
}

// Takes a reference before dropping the old block, so sharing with oneself is
// safe. A block whose count is full gets a private copy instead of a wrapped
// count.
void String::Share(const String& other) {
  if (Block == other.Block) return;
  tBlock* b = other.Block;
  if (b->Refs == MaxRefs) {
    b = NewBlock(b->Chars(), b->Length, b->Length);
  } else {
    ++b->Refs;
  }
  Release(Block);
  Block = b;
}

void String::Unshare() {
  if (Block->Refs > 1) Adopt(NewBlock(Block->Chars(), Block->Length, Block->Length));
}

void String::Adopt(tBlock* b) {
  Release(Block);
  Block = b;
}

// Grows an unshared block geometrically so that repeated appends cost linear
// time in total; s may point into this string's own text, so the old block
// stays alive until the new one is filled.
void String::Append(const char* s, int n) {
  if (n <= 0) return;
  int length = Block->Length;
  if (n > MaxLength - length) AllocationFailed();
  int need = length + n;
  if (Block->Refs == 1 && need <= Block->Capacity) {
    std::memmove(Block->Chars() + length, s, n);
    Block->Chars()[need] = '\0';
    Block->Length = need;
    return;
  }
  int capacity = need;
  if (Block->Refs == 1) {
    capacity = length > MaxLength / 2 ? MaxLength : length * 2;
    if (capacity < need) capacity = need;
  }
  tBlock* b = NewBlock(Block->Chars(), length, capacity);
  std::memcpy(b->Chars() + length, s, n);
  b->Chars()[need] = '\0';
  b->Length = need;
  Adopt(b);
}

int String::Length(int max) const {
  if (max <= 0) return 0;
  return Block->Length < max ? Block->Length : max;
}

String String::Head(int n) const { return Copy(0, n); }

char& String::operator[](int i) {
  Unshare();
  return Block->Chars()[i];
}

String::operator char*() {
  Unshare();
  return Block->Chars();
}

const char* String::Text() const { return Block->Chars(); }

int String::Shares() const { return Block->Refs; }

int operator==(const String& a, const String& b) {
  int n = a.Length();
  return n == b.Length() && std::memcmp(a.Text(), b.Text(), n) == 0;
}

int operator==(const String& a, const char* b) { return std::strcmp(a.Text(), b ? b : "") == 0; }

int operator!=(const String& a, const String& b) { return !(a == b); }

int operator!=(const String& a, const char* b) { return !(a == b); }
