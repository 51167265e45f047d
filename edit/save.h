#ifndef RULEFORGE_EDIT_SAVE_H
#define RULEFORGE_EDIT_SAVE_H

#include <cstdio>
#include <string>

#include "app/filterd.h"

// Saving the edited document, the one way ruleforge-update saves: the file's
// links followed, its lock held, a temporary file renamed over it with the old
// version kept as backup and its mode kept, no rewrite when nothing changed,
// and the same messages. Returns the error status (0 when saved).
int SaveFile(tFilterData& document, const char* fileName);

// How a save would change the file, as ruleforge-update -n shows it (every
// line added when the file does not exist), into text. Returns 0, or an error
// status after a message.
int DiffText(tFilterData& document, const char* fileName, std::string& text);

// Prints to standard output how a save would change the file, as a unified
// difference of its lines (every line added when the file does not exist).
// Returns 0, or an error status after a message.
int ShowDiff(tFilterData& document, const char* fileName);

#endif
