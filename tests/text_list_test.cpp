#include "text/dlist.h"
#include "text/dliststr.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

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

// The list from head to tail, the cursor's element in brackets; "<" in front
// when the cursor is before the head, ">" at the end when it is past the tail.
std::string Dump(DList& list) {
  std::string out = !list.CurrentObject() && !list.IsPastEnd() ? "<" : "";
  for (int i = 0; i < list.Size(); ++i) {
    tObject* obj = list[i];
    out += (out.empty() ? "" : " ") + (obj == list.CurrentObject() ? "[" + NameOf(obj) + "]" : NameOf(obj));
  }
  if (!list.CurrentObject() && list.IsPastEnd()) out += out.empty() ? ">" : " >";
  return out;
}

// Runs a script of list operations ("T A" ToTail, "H" ToHead, "C" ToCurrent,
// "gc" GetCurrent, "gh", "gt", "g A" Get, "n", "p", "nc", "pc", "h" GotoHead,
// "go A", "gi 2", "rh A", "rt A", "mch", "mct", "mh A", "mt A") and returns the
// dump followed by what the removals returned.
std::string RunScript(const std::string& script) {
  DList list;
  std::map<std::string, Item*> items;
  std::vector<tObject*> taken;
  auto item = [&](const std::string& name) {
    if (!items.count(name)) items[name] = new Item(name);
    return items[name];
  };
  std::stringstream ops(script);
  std::string removed, op, arg;
  while (std::getline(ops, op, ';')) {
    std::stringstream words(op);
    words >> op >> arg;
    tObject* got = nullptr;
    bool removal = op[0] == 'g' && op != "go" && op != "gi";
    if (op == "T") list.ToTail(item(arg));
    else if (op == "H") list.ToHead(item(arg));
    else if (op == "C") list.ToCurrent(item(arg));
    else if (op == "gc") got = list.GetCurrent();
    else if (op == "gh") got = list.GetHead();
    else if (op == "gt") got = list.GetTail();
    else if (op == "g") got = list.Get(item(arg));
    else if (op == "n") list.Next();
    else if (op == "p") list.Prev();
    else if (op == "nc") list.NextCircular();
    else if (op == "pc") list.PrevCircular();
    else if (op == "h") list.GotoHead();
    else if (op == "go") list.Goto(item(arg));
    else if (op == "gi") list.Goto(std::stoi(arg));
    else if (op == "rh") list.RotToHead(item(arg));
    else if (op == "rt") list.RotToTail(item(arg));
    else if (op == "mch") list.MoveCurrentToHead();
    else if (op == "mct") list.MoveCurrentToTail();
    else if (op == "mh") list.MoveToHead(item(arg));
    else if (op == "mt") list.MoveToTail(item(arg));
    else ADD_FAILURE() << "unknown operation " << op;
    if (removal) removed += " " + NameOf(got);
    if (got) taken.push_back(got);
  }
  std::string dump = Dump(list) + (removed.empty() ? "" : " |" + removed);
  // Items never linked, or handed over, belong to the test.
  for (auto& entry : items) {
    bool linked = false;
    for (int i = 0; i < list.Size(); ++i) linked = linked || list[i] == entry.second;
    if (!linked) delete entry.second;
  }
  return dump;
}

TEST(ListCursor, AfterEveryOperation) {
  struct Case { const char* script; const char* expected; } cases[] = {
      {"T A; T B; T C", "[A] B C"},
      {"T A; T B; T C; n; gc", "A [C] | B"},
      {"T A; T B; T C; n; n; gc; p", "A [B] | C"},
      {"T A; T B; n; n; n", "A B >"},
      {"T A; T B; n; nc", "[A] B"},
      {"T A; T B; pc", "A [B]"},
      {"T A; T B; n; n; pc", "A [B]"},
      {"T A; T B; p; nc", "[A] B"},
      {"T A; T B; p", "< A B"},
      {"T A; T B; p; p", "< A B"},
      {"T A; T B; n; n; p", "A [B]"},
      {"T A; p; n", "[A]"},
      {"T A; p; H X", "[X] A"},
      {"T A; T B; H X", "[X] A B"},
      {"T A; T B; n; H X", "X A [B]"},
      {"T A; n; n; H X", "X A >"},
      {"T A; n; n; T B", "A [B]"},
      {"T A; p; T B", "< A B"},
      {"T A; T B; n; C X", "A [X] B"},
      {"T A; C X", "[X] A"},
      {"T A; p; C X", "[X] A"},
      {"T A; n; n; C X", "A [X]"},
      {"p; C X", "[X]"},
      {"T A; T B; T C; n; n; gh", "B [C] | A"},
      {"T A; T B; gh", "[B] | A"},
      {"T A; T B; n; gt", "A > | B"},
      {"T A; T B; gt", "[A] | B"},
      {"T A; T B; T C; n; g B", "A [C] | B"},
      {"T A; T B; T C; n; n; n; p; g C", "< A B | C"},  // Get keeps PastEnd
      {"T A; T B; n; n; p; gc", "A > | B"},            // GetCurrent sets it
      {"T A; T B; g Z", "[A] B | -"},
      {"T A; n; p; gc", "< | A"},  // emptying the list keeps PastEnd
      {"T A; gc", "> | A"},
      {"T A; n; p; gt", "< | A"},
      {"T A; n; p; gh", "< | A"},
      {"gc; gh; gt; g A", "> | - - - -"},
      {"T A; n; n; gc", "A > | -"},
      {"T A; T B; T C; go B", "A [B] C"},
      {"T A; go Z", "A >"},
      {"T A; T B; gi 1", "A [B]"},
      {"T A; T B; gi 5", "A B >"},
      {"T A; T B; n; gi -1", "[A] B"},
      {"T A; T B; T C; n; rh B", "[B] C A"},
      {"T A; T B; T C; rt A", "B C [A]"},
      {"T A; T B; T C; rh Z", "[A] B C"},
      {"T A; T B; T C; n; n; mch", "C A B >"},
      {"T A; T B; T C; mct", "[B] C A"},
      {"T A; T B; T C; mh C", "[C] A B"},  // the cursor was on the old head
      {"T A; T B; T C; mt A", "[B] C A"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.script);
    EXPECT_EQ(RunScript(c.script), c.expected);
  }
}

TEST(ListOwnership, ClearDeletesEachOnceTailFirst) {
  std::string log;
  {
    DList list;
    for (const char* name : {"A", "B", "C", "D"}) list.ToTail(new Item(name, &log));
    tObject* b = list[1];
    EXPECT_EQ(list.Get(b), b);
    delete b;
    EXPECT_EQ(log, "B");
    list.Clear();
    EXPECT_EQ(log, "BDAC");
    EXPECT_EQ(Dump(list), ">");
    list.ToTail(new Item("E", &log));
    tObject* e = list.GetHead();
    list.ToHead(new Item("F", &log));
    delete e;
  }
  EXPECT_EQ(log, "BDACEF");
}

// Removing and indexing while Clear runs find nothing.
struct Reentrant : tObject {
  explicit Reentrant(DList* list, std::string* seen) : List(list), Seen(seen) {}
  ~Reentrant() override {
    *Seen += List->GetHead() || List->GetTail() || List->GetCurrent() || (*List)[0] ? "x" : "0";
  }
  DList* List;
  std::string* Seen;
};

TEST(ListOwnership, RemovalsDuringClearReturnNull) {
  std::string seen;
  DList list;
  for (int i = 0; i < 3; ++i) list.ToTail(new Reentrant(&list, &seen));
  list.Clear();
  EXPECT_EQ(seen, "000");
  EXPECT_EQ(list.Size(), 0);
}

TEST(ListIndex, AgreesWithAModelAndLeavesTheCursor) {
  std::mt19937 random(3);
  std::string log;
  DList list;
  std::vector<tObject*> model;
  for (int round = 0; round < 4000; ++round) {
    int r = random() % 10;
    if (r < 3 || model.empty()) {
      auto* item = new Item(std::to_string(round), &log);
      bool head = r == 0;
      head ? list.ToHead(item) : list.ToTail(item);
      model.insert(head ? model.begin() : model.end(), item);
    } else if (r == 3) {
      delete list.GetHead();
      model.erase(model.begin());
    } else if (r == 4) {
      list.RotToHead(model.back());
      std::rotate(model.begin(), model.end() - 1, model.end());
    } else {
      tObject* before = list.CurrentObject();
      int start = random() % model.size();
      for (int i = start; i < static_cast<int>(model.size()) && i < start + 20; ++i) ASSERT_EQ(list[i], model[i]);
      for (int i = start; i >= 0 && i > start - 20; --i) ASSERT_EQ(list[i], model[i]);
      ASSERT_EQ(list.CurrentObject(), before);
    }
  }
  EXPECT_EQ(list[-1], nullptr);
  EXPECT_EQ(list[list.Size()], nullptr);
}

TEST(ListWhole, CopyRestoresTheSourceCursorAndTakeMovesEverything) {
  std::string log;
  DList source, copy;
  for (const char* name : {"A", "B", "C"}) source.ToTail(new Item(name, &log));
  source.Next();
  copy.Copy(&source);
  EXPECT_EQ(Dump(source), "A [B] C");
  EXPECT_EQ(Dump(copy), "[A'] B' C'");
  source.Prev();
  source.Prev();
  copy.Copy(&source);  // before the head: the cursor comes back past the tail
  EXPECT_EQ(Dump(source), "A B C >");
  EXPECT_EQ(log, "C'A'B'");  // the first copy was cleared, tail first

  source.ToTail(nullptr);  // a null element ends a copy
  source.ToTail(new Item("D", &log));
  copy.Copy(&source);
  EXPECT_EQ(Dump(copy), "[A'] B' C'");
  delete source.Get(nullptr);

  DList taker;
  taker.ToTail(new Item("Z", &log));
  source.GotoHead();
  source.Prev();
  taker.Take(&source);
  EXPECT_EQ(log, "C'A'B'C'A'B'Z");
  EXPECT_EQ(Dump(taker), "A B C D >");
  EXPECT_EQ(Dump(source), "<");
  taker.Clear();
  EXPECT_EQ(log, "C'A'B'C'A'B'ZDABC");
}

std::string Entries(DListtString& list) {
  std::string out;
  for (int i = 0; i < list.Size(); ++i) out += "[" + std::string(list[i]->Text()) + "]";
  return out;
}

TEST(StringList, FromString) {
  struct Case { const char* text; const char* separators; const char* strip; int skip; const char* expected; } cases[] = {
      {"a, b,c", ",\n", " \r\n\t,", 0, "[a][b][c]"},  {"a b,c", ",\n", " \r\n\t,", 0, "[ab][c]"},
      {"a,,b", ",\n", " \r\n\t,", 0, "[a][][b]"},     {"a,", ",\n", " \r\n\t,", 0, "[a]"},
      {"   ", ",\n", " \r\n\t,", 0, "[]"},            {"", ",\n", " \r\n\t,", 0, ""},
      {"a\nb\r\n", ",\n", " \r\n\t,", 0, "[a][b]"},   {",a", ",\n", " \r\n\t,", 0, "[][a]"},
      {",,a,b", ",", ",", 1, "[a][b]"},               {"a,b", ",", ",", 1, "[a][b]"},
      {",,,", ",", ",", 1, ""},                       {"a,b", ",", "", 0, "[a,][b]"},
      {"a,b", "", "", 0, "[a,b]"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    DListtString list;
    list.FromString(c.text, c.separators, c.strip, c.skip);
    EXPECT_EQ(Entries(list), c.expected);
  }
  DListtString list;
  list.FromString("x", ",", "", 0);
  list.FromString(nullptr, ",", "", 0);
  list.FromString("y,z", ",", ",", 0);
  EXPECT_EQ(Entries(list), "[x][y][z]");
}

TEST(StringList, ToString) {
  struct Case { const char* entries; int trailing; const char* expected; } cases[] = {
      {"a,b,c", 0, "a, b, c"}, {"a,b,c", 1, "a, b, c, "}, {"", 1, ""}, {"a", 0, "a"}, {"a", 1, "a, "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.entries);
    DListtString list;
    list.FromString(c.entries, ",", ",", 0);
    EXPECT_STREQ(list.ToString(", ", c.trailing).Text(), c.expected);
    EXPECT_EQ(list.Current(), nullptr);
  }
}

TEST(StringList, LongLineRoundTrip) {
  std::string line;
  for (int i = 0; i < 500000; ++i) line += "abcdefghi,";
  DListtString list;
  list.FromString(line.c_str(), ",\n", " \r\n\t,", 0);
  ASSERT_EQ(list.Size(), 500000);
  EXPECT_STREQ(list[250000]->Text(), "abcdefghi");
  EXPECT_EQ(list.ToString(", ", 0).Length(), 500000 * 9 + 499999 * 2);
}

TEST(StringElement, OrderAndClone) {
  struct Case { const char* a; const char* b; int greater, equals; } cases[] = {
      {"abc", "abd", 0, 0}, {"abd", "abc", 1, 0}, {"ab", "abc", 0, 0},
      {"abc", "ab", 1, 0},  {"a", "a", 0, 1},     {"\xff", "a", 1, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.a) + " vs " + c.b);
    tString a(c.a), b(c.b);
    EXPECT_EQ(a.Greater(&b), c.greater);
    EXPECT_EQ(a.Equals(&b), c.equals);
  }
  tPrioritizedString low(String("same"), 3), high(String("other"), 7), tie(String("x"), 3);
  EXPECT_EQ(low.Greater(&high), 0);
  EXPECT_EQ(high.Greater(&low), 1);
  EXPECT_EQ(low.Equals(&tie), 1);
  EXPECT_EQ(low.Equals(&high), 0);
  tObject* clone = high.Clone();
  auto* typed = dynamic_cast<tPrioritizedString*>(clone);
  ASSERT_NE(typed, nullptr);
  EXPECT_EQ(typed->Priority, 7);
  EXPECT_EQ(high.Shares(), 2);
  delete clone;
}

// ToSorted step by step as the cursor walk defines it: the reference that the
// indexed insertion must match in order, cursor and PastEnd.
void WalkSorted(DListtPrioritizedString& list, tPrioritizedString* p) {
  if (!list.Current()) list.GotoHead();
  if (list.Current() && list.Current()->Greater(p)) {
    while (list.Current() && list.Current()->Greater(p)) list.Prev();
  }
  if (list.Current() && !list.Current()->Greater(p)) {
    while (list.Current() && !list.Current()->Greater(p)) list.Next();
  }
  list.ToCurrent(p);
}

std::string State(DListtPrioritizedString& list) {
  std::string out;
  for (int i = 0; i < list.Size(); ++i) {
    auto* s = static_cast<tPrioritizedString*>(list.DList::operator[](i));
    out += (s == list.Current() ? "*" : "") + std::string(s->Text()) + ":" + std::to_string(s->Priority) + " ";
  }
  return out + (list.Current() ? "" : list.IsPastEnd() ? ">" : "<");
}

TEST(PrioritizedList, ToSortedTable) {
  struct Case { std::vector<int> priorities; const char* expected; } cases[] = {
      {{5, 3, 5, 1, 3}, "3:1 1:3 *4:3 0:5 2:5 "},
      {{1, 2, 3}, "0:1 1:2 *2:3 "},
      {{3, 2, 1}, "*2:1 1:2 0:3 "},
      {{0, 0, 0}, "0:0 1:0 *2:0 "},
      {{INT_MAX, INT_MIN, -1, 0}, "1:-2147483648 2:-1 *3:0 0:2147483647 "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.expected);
    DListtPrioritizedString list;
    for (size_t i = 0; i < c.priorities.size(); ++i) {
      list.ToSorted(new tPrioritizedString(String(std::to_string(i).c_str()), c.priorities[i]));
    }
    EXPECT_EQ(State(list), c.expected);
  }
}

// Random insertions mixed with removals, cursor moves, copies and takes (each
// makes the index stale) and Get of the tail, which reveals PastEnd. Short
// lists with few priorities bring head insertions and the removals right
// after them often; the long run keeps a large index in use.
TEST(PrioritizedList, ToSortedMatchesTheWalk) {
  std::mt19937 random(11);
  for (int longest : {6, 400}) {
    DListtPrioritizedString fast, walked, spare;
    int id = 0;
    for (int round = 0; round < 6000; ++round) {
      int r = random() % 20;
      auto both = [&](auto op) { op(fast); op(walked); };
      if (r < 10 && fast.Size() < longest) {
        int spread = longest < 10 ? 3 : 20;
        int priority = static_cast<int>(random() % (2 * spread + 1)) - spread;
        String text(std::to_string(id++).c_str());
        fast.ToSorted(new tPrioritizedString(text, priority));
        WalkSorted(walked, new tPrioritizedString(text, priority));
      } else if (r < 12) {
        both([](DList& l) { delete l.GetCurrent(); });
      } else if (r == 12) {
        both([](DList& l) { delete l.GetHead(); });
      } else if (r == 13) {
        both([](DList& l) { delete l.GetTail(); });
      } else if (r < 16) {
        both([](DList& l) { delete l.Get(l[l.Size() - 1]); });
      } else if (r == 16) {
        int steps = random() % 5;
        both([&](DList& l) { for (int i = 0; i < steps; ++i) (steps % 2 ? l.Next() : l.Prev()); });
      } else if (r == 17) {
        int n = random() % (fast.Size() + 2);
        both([&](DList& l) { l.Goto(n); });
      } else if (r == 18) {
        spare.Copy(&fast);
        fast.Take(&spare);
        spare.Copy(&walked);
        walked.Take(&spare);
      } else if (random() % 50 == 0) {
        both([](DList& l) { l.Clear(); });
      }
      ASSERT_EQ(State(fast), State(walked)) << "round " << round;
    }
  }
}

TEST(PrioritizedList, OutOfOrderListsAndChangedPriorities) {
  DListtPrioritizedString fast, walked;
  for (int p : {5, 1, 9, 3}) {
    fast.ToTail(new tPrioritizedString(String("t"), p));
    walked.ToTail(new tPrioritizedString(String("t"), p));
  }
  for (DListtPrioritizedString* l : {&fast, &walked}) l->Goto(2);
  fast.ToSorted(new tPrioritizedString(String("n"), 4));
  WalkSorted(walked, new tPrioritizedString(String("n"), 4));
  EXPECT_EQ(State(fast), State(walked));

  DListtPrioritizedString changed, reference;
  for (int p : {1, 5, 5, 9}) {
    changed.ToSorted(new tPrioritizedString(String("t"), p));
    reference.ToSorted(new tPrioritizedString(String("t"), p));
  }
  // Raised in place: still in order, but the index's entry for 5 is wrong.
  static_cast<tPrioritizedString*>(changed.DList::operator[](2))->Priority = 7;
  static_cast<tPrioritizedString*>(reference.DList::operator[](2))->Priority = 7;
  changed.ToSorted(new tPrioritizedString(String("n"), 6));
  WalkSorted(reference, new tPrioritizedString(String("n"), 6));
  EXPECT_EQ(State(changed), State(reference));
}

TEST(PrioritizedList, ManyRandomPrioritiesSortStably) {
  std::mt19937 random(5);
  DListtPrioritizedString list;
  std::vector<std::pair<int, int>> expected;
  for (int i = 0; i < 200000; ++i) {
    int priority = static_cast<int>(random() % 1000);
    list.ToSorted(new tPrioritizedString(String(std::to_string(i).c_str()), priority));
    expected.emplace_back(priority, i);
  }
  std::stable_sort(expected.begin(), expected.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  int i = 0;
  for (list.GotoHead(); list.Current(); list.Next(), ++i) {
    ASSERT_EQ(list.Current()->Priority, expected[i].first);
    ASSERT_STREQ(list.Current()->Text(), std::to_string(expected[i].second).c_str());
  }
  EXPECT_EQ(i, 200000);
}

}  // namespace
