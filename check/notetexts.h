#ifndef RULEFORGE_CHECK_NOTETEXTS_H
#define RULEFORGE_CHECK_NOTETEXTS_H

#include "check/clausenames.h"
#include "parse/notes.h"
#include "text/str.h"

// What a finding about a note is built from: the note's detail, the text of
// the noted data line ("" where the reader delivered no such line), whether
// that line is a clause's head line, and the template's clause names.
struct tNoteContext {
  const String& Detail;
  const String& Noted;
  int Head;
  const tClauseNames& Names;
};

// The finding that a note makes: what the reader did and, in parentheses,
// what was probably meant. Empty for the notes that are no finding by
// themselves (the lines delivered, a string line cut short, whose finding
// needs the clause).
String NoteText(tNote what, const tNoteContext& context);

#endif
