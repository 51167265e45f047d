#include "text/dlist.h"
#include "text/dliststr.h"
#include "text/slotpool.h"

#include <gtest/gtest.h>

#include <malloc.h>

#include <climits>
#include <fstream>
#include <functional>
#include <map>
#include <new>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "testutil.h"

namespace {

// An element that logs its deletion, so tests can see who deleted what.
struct Item : tObject {
  explicit Item(const std::string& name, std::string* log = nullptr) : Name(name), Log(log) {}
  ~Item() override {
    if (Log) *Log += Name;
  }
  tObject* Clone() override { return new Item(Name + "'", Log); }
  std::string Name;
  std::string* Log;
};

std::string NameOf(tObject* obj) { return obj ? static_cast<Item*>(obj)->Name : "-"; }

// Head to tail with the cursor's element in brackets; "<" in front when the
// cursor is before the head, ">" at the end when it is past the tail.
std::string Dump(DList& list) {
  std::string out = list.CurrentObject() || list.IsPastEnd() ? "" : "<";
  for (int i = 0; i < list.Size(); ++i) {
    std::string name = NameOf(list[i]);
    out += (out.empty() ? "" : " ") + (list[i] == list.CurrentObject() ? "[" + name + "]" : name);
  }
  return out + (list.CurrentObject() || !list.IsPastEnd() ? "" : out.empty() ? ">" : " >");
}

// A list that leaves its elements to their owner.
struct Borrowing : DList {
  void Destroy(tObject*) override {}
  ~Borrowing() override { Clear(); }
};

// Runs a script such as "T A; n; gc" and returns the dump, then what the
// removals (gc, gh, gt, g) returned.
std::string RunScript(const std::string& script) {
  std::map<std::string, Item> items;
  Borrowing list;
  std::string removed, op, arg;
  const std::map<std::string, std::function<void(Item*)>> moves = {
      {"T", [&](Item* x) { list.ToTail(x); }},
      {"H", [&](Item* x) { list.ToHead(x); }},
      {"C", [&](Item* x) { list.ToCurrent(x); }},
      {"n", [&](Item*) { list.Next(); }},
      {"p", [&](Item*) { list.Prev(); }},
      {"nc", [&](Item*) { list.NextCircular(); }},
      {"pc", [&](Item*) { list.PrevCircular(); }},
      {"go", [&](Item* x) { list.Goto(x); }},
      {"rh", [&](Item* x) { list.RotToHead(x); }},
      {"gi", [&](Item*) { list.Goto(stoi(arg)); }},
      {"rt", [&](Item* x) { list.RotToTail(x); }},
      {"mh", [&](Item* x) { list.MoveToHead(x); }},
      {"mt", [&](Item* x) { list.MoveToTail(x); }},
      {"mch", [&](Item*) { list.MoveCurrentToHead(); }},
      {"mct", [&](Item*) { list.MoveCurrentToTail(); }},
  };
  std::stringstream ops(script);
  while (std::getline(ops, op, ';')) {
    std::stringstream(op) >> op >> arg;
    Item* x = &items.try_emplace(arg, arg).first->second;
    if (moves.count(op))
      moves.at(op)(x);
    else
      removed += " " + NameOf(op == "gc"   ? list.GetCurrent()
                              : op == "gh" ? list.GetHead()
                              : op == "gt" ? list.GetTail()
                                           : list.Get(x));
  }
  return Dump(list) + (removed.empty() ? "" : " |" + removed);
}

TEST(ListCursor, AfterEveryOperation) {
  std::ifstream scripts(TestData("list-cursor.txt"));
  int run = 0;
  for (std::string line; std::getline(scripts, line);) {
    if (line.empty() || line[0] == '#') continue;
    SCOPED_TRACE(line);
    size_t arrow = line.find(" => ");
    EXPECT_EQ(RunScript(line.substr(0, arrow)), line.substr(arrow + 4));
    ++run;
  }
  EXPECT_GE(run, 40);
}

// Looks at the list from its destructor, run while Clear deletes it.
struct Peeker : tObject {
  Peeker(DList* list, std::string* seen) : List(list), Seen(seen) {}
  ~Peeker() override { *Seen += List->GetHead() || List->GetTail() || (*List)[0] ? "x" : "0"; }
  DList* List;
  std::string* Seen;
};

// Clear deletes from the tail, then from the head on; a removed element is the
// caller's. A copy clones up to a null element and puts the source's cursor
// back where it was, or past the tail when it was off the list.
TEST(ListOwnership, EachElementIsDeletedOnce) {
  std::string log;
  {
    DList list, copy, taker;
    for (const char* name : {"A", "B", "C", "D"}) list.ToTail(new Item(name, &log));
    delete list.Get(list[1]);
    list.Next();
    copy.Copy(&list);
    EXPECT_EQ(Dump(list), "A [C] D");
    EXPECT_EQ(Dump(copy), "[A'] C' D'");
    list.Prev();
    list.Prev();
    copy.Copy(&list);  // the cursor was before the head
    EXPECT_EQ(Dump(list), "A C D >");
    list.ToTail(nullptr);  // ends the next copy
    list.ToTail(new Item("E", &log));
    copy.Copy(&list);
    EXPECT_EQ(Dump(copy), "[A'] C' D'");
    EXPECT_EQ(log, "BD'A'C'D'A'C'");  // each copy replaced the one before
    list.Get(nullptr);
    taker.ToTail(new Peeker(&taker, &log));  // Take clears the taker first
    taker.Take(&list);
    EXPECT_EQ(Dump(taker), "A C D E >");
    EXPECT_EQ(Dump(list), ">");
    tObject* a = taker.GetHead();  // now the test's to delete
    taker.Clear();
    EXPECT_EQ(log, "BD'A'C'D'A'C'0ECD");
    delete a;
  }
  EXPECT_EQ(log, "BD'A'C'D'A'C'0ECDAD'A'C'");
}

// A link the list cannot get is an allocation failure, never a silent loss of
// the element: it goes to the new-handler, or throws without one.
TEST(ListOwnership, ALinkThatCannotBeMadeIsAnAllocationFailure) {
  struct NoLinks : DList {
    DLink* NewLink(tObject*, DLink*, DLink*) override { return nullptr; }
  } list;
  Item item("A");
  // Every program, this one too, installs the out-of-memory handler before
  // main; without a handler the failure is a std::bad_alloc.
  std::new_handler handler = std::set_new_handler(nullptr);
  EXPECT_THROW(list.ToTail(&item), std::bad_alloc);
  std::set_new_handler(handler);
  EXPECT_EQ(list.Size(), 0);
}

tPrioritizedString* At(DListtPrioritizedString& list, int i) {
  return static_cast<tPrioritizedString*>(list.DList::operator[](i));
}

// The list by a walk, head to tail, with the cursor's text starred. Indexing
// must give the same texts from a random place onward and from the tail back
// (so the index cache serves both directions), and neither may move the cursor.
std::string State(DListtPrioritizedString& list, std::mt19937& random) {
  const tObject* cursor = list.CurrentObject();
  std::vector<const tPrioritizedString*> seen;
  std::string out;
  for (const tPrioritizedString* p : Walk<const tPrioritizedString>(list)) {
    seen.push_back(p);
    out +=
        (p == cursor ? "*" : "") + std::string(p->Text()) + ":" + std::to_string(p->Priority) + " ";
  }
  int n = seen.size();
  for (int i = n ? random() % n : 0; i < n; ++i) EXPECT_EQ(At(list, i), seen[i]);
  for (int i = n; i >= -1; --i) EXPECT_EQ(At(list, i), i < 0 || i == n ? nullptr : seen[i]);
  EXPECT_EQ(list.CurrentObject(), cursor);
  return out + (cursor ? "" : list.IsPastEnd() ? ">" : "<");
}

// Text n of a row has priority priorities[n]; each goes after every text of
// at most its priority, found from wherever the cursor stands (the last text
// put in, or where a move left it: kBack steps back, kForward forward,
// kPast goes past the end), and becomes the current text.
TEST(PrioritizedList, ToSortedPlacesByPriorityTiesInOrderOfInsertion) {
  const int kBack = -1000, kForward = -2000, kPast = -3000;
  struct Case {
    std::vector<int> priorities;
    const char* expected;
  } cases[] = {
      {{2, 1, 3}, "1:1 0:2 *2:3 "},
      {{1, 1, 0, 1}, "2:0 0:1 1:1 *3:1 "},
      {{-5, 5, 0, 0, -5}, "0:-5 *4:-5 2:0 3:0 1:5 "},
      {{INT_MIN, INT_MAX, 0}, "0:-2147483648 *2:0 1:2147483647 "},
      {{1, 1, kBack, kBack, 1}, "0:1 1:1 *4:1 "},
      {{0, 2, kBack, kBack, kPast, 1}, "0:0 *5:1 1:2 "},
      {{4, 4, kBack, kForward, kForward, 4}, "0:4 1:4 *5:4 "},
  };
  std::mt19937 random(11);
  for (const Case& c : cases) {
    DListtPrioritizedString list;
    int id = 0;
    for (int priority : c.priorities) {
      if (priority == kBack) {
        list.Prev();
      } else if (priority == kForward) {
        list.Next();
      } else if (priority == kPast) {
        for (list.GotoHead(); list.Current();) list.Next();
      } else {
        list.ToSorted(new tPrioritizedString(std::to_string(id).c_str(), priority));
      }
      ++id;
    }
    EXPECT_EQ(State(list, random), c.expected);
  }
}

}  // namespace

// The comparisons a list element offers: a text by its bytes, as unsigned
// values, a shorter text before the longer one it begins; a prioritized text by
// its priority alone; a plain element is greater than any and equal to none.
TEST(ListElements, CompareAsTheirKindSays) {
  struct Case {
    const char *a, *b;
    int greater, equals;
  } texts[] = {
      {"abc", "abd", 0, 0}, {"abd", "abc", 1, 0}, {"ab", "abc", 0, 0}, {"abc", "ab", 1, 0},
      {"abc", "abc", 0, 1}, {"", "", 0, 1},       {"\x80", "a", 1, 0}, {"a", "\x80", 0, 0},
  };
  for (const Case& c : texts) {
    tString a(c.a), b(c.b);
    EXPECT_EQ(a.Greater(&b), c.greater) << c.a << " " << c.b;
    EXPECT_EQ(a.Equals(&b), c.equals) << c.a << " " << c.b;
  }
  struct Priorities {
    int a, b, greater, equals;
  } priorities[] = {{2, 1, 1, 0}, {1, 2, 0, 0}, {3, 3, 0, 1}, {INT_MIN, INT_MAX, 0, 0}};
  for (const Priorities& c : priorities) {
    tPrioritizedString a(String("z"), c.a), b(String("a"), c.b);
    EXPECT_EQ(a.Greater(&b), c.greater) << c.a << " " << c.b;
    EXPECT_EQ(a.Equals(&b), c.equals) << c.a << " " << c.b;
  }
  Item plain("plain");
  EXPECT_EQ(plain.Greater(&plain), 1);
  EXPECT_EQ(plain.Equals(&plain), 0);
}

// A pool whose slots have all been given back returns its chunks to the
// allocator when it goes, so that a run frees what it took. The allocator
// counts the small blocks it keeps for reuse as held: a chunk of the pool
// (4096 slots) is far larger than those.
TEST(SlotPool, ReturnsItsChunksWhenNoSlotIsInUse) {
  std::vector<void*> slots(10000);
  auto held = [] {
    struct mallinfo2 now = mallinfo2();
    return now.uordblks + now.hblkhd;
  };
  size_t before = held();
  {
    tSlotPool pool(48);
    for (void*& slot : slots) slot = pool.Take();
    for (void* slot : slots) pool.Give(slot);
  }
  EXPECT_LT(held(), before + 4096 * 48);
}
