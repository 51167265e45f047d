#ifndef RULEFORGE_APP_COMMON_H
#define RULEFORGE_APP_COMMON_H

#include "text/str.h"

// The code of the most recent Error call; 0 at start. The entry point checks it
// between the stages of a run and returns it as the exit status.
extern int error;

// 1 in the programs beside ruleforge: their messages show control characters
// of the input they quote escaped (text/shown.h). 0 by default, so that
// ruleforge prints its messages as they stand.
extern int EscapeMessages;

// Prints "ERROR(code): text" on standard error and records the code in error.
void Error(int code, const char* text);
void Error(int code, const String& text);
// Prints "Warning(code): text" on standard error; changes nothing.
void Warning(int code, const char* text);
void Warning(int code, const String& text);
// Leave the message line of one code out from then on: a program that reports
// the condition in its own terms (ruleforge-check makes findings of warnings 1
// and 2 and error 6) quiets the line. Error still records a quieted code.
void QuietError(int code);
void QuietWarning(int code);

// Ends the run at once when memory runs out: prints "ERROR(12): Out of memory.",
// flushes what standard output already holds and exits with status 12, without
// unwinding or freeing anything. The entry points install it as the
// new-handler, so every failed allocation ends here: operator new's, the
// standard containers' and the text layer's own (AllocationFailed).
[[noreturn]] void OutOfMemory();

// The program's identity, written into every parseable section and compared
// when one is read back, and the first line of every template file.
extern const String AppVersion;
extern const String DataFileBanner;
extern const String ProgramName;
extern const String version;
extern const String DataFileTemplateHeader;
extern const String TemplateFileBanner;

#endif
