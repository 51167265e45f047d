#ifndef RULEFORGE_TEXT_REPLACE_H
#define RULEFORGE_TEXT_REPLACE_H

#include <string>

// String::ReplaceAll's rule on plain bytes, for callers that keep a text in a
// buffer of their own: every occurrence of `from` (m >= 1 bytes) in `text` (n
// bytes) is replaced by `to` (t bytes), searching again from the start after
// each replacement, within the same caps. The result goes to `out`; false,
// with `out` unspecified, when `from` does not occur.
bool ReplaceAllBytes(const char* text, int n, const char* from, int m, const char* to, int t,
                     std::string& out);

// The replacements left to the rescans of the run, which all texts share, and
// a fresh budget for a program that makes several independent runs in one
// process.
long long ReplacementBudgetLeft();
void RestartReplacementBudget();

// Sets the rescans' bounds: replacements for one text, for all texts of a run,
// and the length a rescanned text may reach. The program keeps the defaults (a
// hundred million, a hundred million, 64 MiB); the fuzz targets lower them, so
// that an input that diverges costs milliseconds rather than seconds.
void SetReplacementBounds(long long perText, long long perRun, long long length);

#endif
