#ifndef RULEFORGE_CHECK_NESTED_H
#define RULEFORGE_CHECK_NESTED_H

#include <vector>

#include "text/str.h"

// For each name of a list, the earlier names it differs from but contains or
// occurs inside, in ascending order: the pairs whose order decides what a
// substitution replaces. Empty names take part in no pair. Takes time linear
// in the total length of the names plus the pairs found (an automaton over all
// names scans each name once).
std::vector<std::vector<int>> NestedNames(const std::vector<const String*>& names);

#endif
