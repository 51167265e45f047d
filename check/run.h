#ifndef RULEFORGE_CHECK_RUN_H
#define RULEFORGE_CHECK_RUN_H

#include <cstdio>
#include <vector>

// One check as ruleforge-check runs it: reads the template (null: mkrule.tpl)
// and each data file (null: standard input, shown as <stdin>) with the
// readers' notes, and prints the findings of each file to out in line order.
// Returns 0 when nothing was found, 1 when something was, 2 when a file could
// not be read as a template or data file (the messages are on standard
// error). resolve says whether entries go to name lookup, which the checks
// then weigh (nothing is looked up).
int CheckFiles(const char* templateName, const std::vector<const char*>& dataFiles, int resolve,
               FILE* out);

// Writes a starting data file for the template (null: mkrule.tpl) to out and
// its findings about clauses it had to leave out to findingsOut. Returns 0,
// 1 when a clause was left out, 2 when the template could not be read.
int WriteStarterFile(const char* templateName, FILE* out, FILE* findingsOut);

#endif
