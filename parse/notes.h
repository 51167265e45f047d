#ifndef RULEFORGE_PARSE_NOTES_H
#define RULEFORGE_PARSE_NOTES_H

#include "text/str.h"

// What a reader did with input it could not take as written. Each note comes
// with the physical line (from 1) it concerns and, where one helps, a detail.
enum tNote {
  // Either input.
  NoteNulByte,  // a line holds a NUL byte: what follows it is lost; the line as read
  // Template file.
  NoteLineSkipped,            // a non-blank line outside any section or clause; the line
  NoteUnknownSection,         // a section of another name is skipped; the name
  NoteSectionNameOnNextLine,  // "~~~~" alone: the next line became the name; that name
  NoteHeaderAlone,            // "~" alone: the header fields come from the next line; that line
  NoteHeaderNoCommas,         // a header without commas ends the clause; the fields
  NoteHeaderFewFields,        // a header with fewer than three fields ends the clause; the fields
  NoteHeaderUnknownKind,      // a kind other than S or V ends the clause; the fields
  NoteVariantHeld,            // a variant outside 0..3 was held to that range; the fields
  NotePriorityHeld,           // a number beyond the 32-bit range was held to it; the field
  NoteShortStringLine,        // the clause's seven strings run onto later lines; the count
  NoteExtraStrings,           // more than seven strings: the rest of the line is skipped
  NoteNotClauseSeparator,     // "~~~" followed by more starts a clause; the line
  NoteSecondCompanion,        // "~~" inside a companion ends it and creates nothing
  NoteLabelLineAlone,         // "~" alone as the label line: the next line, the number
  NoteSubstitutionSwallows,   // a substitution line took its value from the next line
  NoteSubstitutionUnclosed,   // a substitution line without a third delimiter; the name
  NoteTextLine,               // a line taken into the text placed last, as meant; no detail
  // Data input.
  NoteDataLine,         // a line delivered as data; the line as written
  NoteDataLineSkipped,  // a line that is not data; the line as written
  NoteBareMarker,       // a line of just "###", skipped
  NoteNoStates,         // a head line without states: the next line held them
  NoteStateEntry,       // a state entry other than "0" and "1"; the entry
  NoteTooManyStates,    // more than four state entries; the fifth
  NoteExtraDataLine,    // a line after a clause's two list lines, skipped; the line
  NoteGluedEntry,       // an entry with blanks inside, which are removed; the entry
  NoteUnknownClause,    // a clause name the data set has no record for; the name
  NoteClauseTwice,      // a clause read a second time in one data set; the name
  NoteSetHeaderAlone,   // "###~~~~" alone: the next line's first token named the set
  NoteSetTwice,         // a data set name read a second time; the name
  NoteOtherWriter,      // the banner names another program or version; writer identity
  NoteOtherTemplate,    // the title line names another template; the stored title
};

// Receives the notes of a reader and where the elements it built were read
// from (an element is identified by its address, which it keeps while the
// reader runs). The class itself is the silent default (Silent()), which a
// reader uses when given no other. A reader reports what it always reports
// whatever receives its notes.
class tReadNotes {
 public:
  virtual ~tReadNotes() {}
  // The one silent receiver, shared by every reader given no other.
  static tReadNotes& Silent() {
    static tReadNotes silent;
    return silent;
  }
  virtual void Note(int line, tNote what, const String& detail) {
    (void)line;
    (void)what;
    (void)detail;
  }
  virtual void Placed(const void* element, int line) {
    (void)element;
    (void)line;
  }
};

#endif
