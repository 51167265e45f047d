#include "check/nested.h"

#include "text/automaton.h"

std::vector<std::vector<int>> NestedNames(const std::vector<const String*>& names) {
  int n = static_cast<int>(names.size());
  std::vector<String> texts;
  texts.reserve(n);
  for (const String* name : names) texts.push_back(*name);
  tNameAutomaton automaton(texts);

  // Each name is scanned once; a state found while scanning name i is marked
  // with i, and so is every state along its chain of found suffixes, so a
  // chain is walked only up to its first marked state. Equal names share
  // their own state, which is passed over.
  std::vector<int> marked(automaton.States(), -1);
  std::vector<std::pair<int, int>> found;
  for (int i = 0; i < n; ++i) {
    int own = automaton.StateOf(i);
    if (own < 0) continue;
    automaton.Scan(texts[i].Text(), texts[i].Length(), [&](int state) {
      for (int hit = automaton.FirstFound(state); hit >= 0 && marked[hit] != i;
           hit = automaton.NextFound(hit)) {
        marked[hit] = i;
        if (hit == own) continue;
        for (int j : automaton.NamesOf(hit)) found.emplace_back(j < i ? j : i, j < i ? i : j);
      }
    });
  }

  // Placed by the earlier name first, so that each later name's list comes
  // out in ascending order without a sort.
  std::vector<int> start(n + 1, 0);
  for (const auto& pair : found) ++start[pair.first + 1];
  for (int i = 0; i < n; ++i) start[i + 1] += start[i];
  std::vector<int> later(found.size());
  for (const auto& pair : found) later[start[pair.first]++] = pair.second;
  std::vector<std::vector<int>> nested(n);
  for (int earlier = 0, at = 0; earlier < n; ++earlier)
    for (; at < start[earlier]; ++at) nested[later[at]].push_back(earlier);
  return nested;
}
