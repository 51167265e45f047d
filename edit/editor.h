#ifndef RULEFORGE_EDIT_EDITOR_H
#define RULEFORGE_EDIT_EDITOR_H

// The full-screen editor on the file: reads the template and the file (a file
// that does not exist starts from the template's empty data) with the
// checker's receiver of notes, then takes over the terminal and shows what
// the reading found first. A template that cannot be read ends it before the
// screen is taken. Returns the exit status.
int RunEditor(const char* templateName, int resolve, const char* fileName);

#endif
