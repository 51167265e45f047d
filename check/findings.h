#ifndef RULEFORGE_CHECK_FINDINGS_H
#define RULEFORGE_CHECK_FINDINGS_H

#include <cstdio>
#include <string>
#include <vector>

#include "text/str.h"

// The findings of the file being checked, each a line number and a sentence,
// printed in line order in the form compilers use: FILE:LINE: warning: TEXT,
// with control characters shown escaped (text/shown.h), since both the name
// and the text quote input.
// Findings of one line keep the order in which they were found.
class tFindings {
 public:
  tFindings() : Total(0) {}

  // Starts the findings of a file, shown under shownName.
  void Begin(const char* shownName);
  void Add(int line, const String& text);
  // Forgets the current file's findings of lines from to to (both included),
  // which a finding about their cause replaces.
  void Drop(int from, int to);
  // Lets the next finding of line stand for the line: the findings added for
  // it later are symptoms of that one (a NUL byte that glued two lines) and
  // are not printed.
  void Alone(int line);
  // Prints the current file's findings to out and forgets them.
  void Print(FILE* out);
  // Every finding added so far, of every file.
  int Total;

 private:
  std::string Name;
  std::vector<std::pair<int, std::string>> Items;
  // Each line whose next finding stands alone, with that finding's index.
  std::vector<std::pair<int, size_t>> AloneLines;
};

// text in double quotes, as findings quote what the input holds.
String Quoted(const String& text);
// n in decimal.
String Number(long n);

#endif
