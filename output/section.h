#ifndef RULEFORGE_OUTPUT_SECTION_H
#define RULEFORGE_OUTPUT_SECTION_H

#include <cstdio>

#include "rules/clauslst.h"

// The fixed lines that open the parseable section, before the identity lines.
extern const char ParseableSectionHead[];
// The line that closes the parseable section, and the empty line after it.
extern const char ParseableSectionEnd[];

// Writes the head of the parseable section: its fixed lines, the line naming
// the program and version, and the line naming the template's title.
void WriteSectionHead(FILE* out, const char* title);

// Writes the whole parseable section: the head, each data set's lines, the
// end. Returns what the data sets' writing returned.
int WriteSection(FILE* out, const char* title, DListOfDListtClauseData& sets);

#endif
