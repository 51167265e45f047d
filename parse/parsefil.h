#ifndef RULEFORGE_PARSE_PARSEFIL_H
#define RULEFORGE_PARSE_PARSEFIL_H

#include <cstdio>

#include "parse/notes.h"
#include "text/str.h"

// Reads a text file line by line and lets callers take the current line apart
// from the front: a character, a token, or the rest of the line. A used-up line
// is replaced by the next one at once. What counts as the next line is the one
// difference between the two input formats, so Next() is virtual. Owns the
// stream it opened; standard input (a null name) is never closed. Notes go to
// the receiver given, which must outlive the reader.
class tParseableFile {
 public:
  explicit tParseableFile(const char* name, tReadNotes& notes = tReadNotes::Silent());
  virtual ~tParseableFile();

  int Open(const char* name);
  int Close();
  int Eof();

  virtual void Next();
  virtual char Ch();
  virtual String& Line();
  virtual String GetString(int width);
  virtual char GetCh();
  virtual String GetLine();

  int IsOpen;
  // 1 once a read of the stream failed; the input ends there as at the end of
  // the file, and the callers report the failure instead of using what was read.
  int ReadFailed;
  // The physical line (from 1) that the current line was read from, counting
  // every line of the file, also those the format skips; 0 before the first.
  int LineNumber;
  // The physical line that the last token, character or rest of a line taken
  // came from.
  int TakenFrom;
  tReadNotes& Notes;

  void Note(int line, tNote what, const String& detail = Empty) { Notes.Note(line, what, detail); }
  void Placed(const void* element, int line) { Notes.Placed(element, line); }

 protected:
  FILE* Stream;
  // The current line; its unread rest begins at Pos. Consuming advances Pos
  // instead of cutting the front off, so taking a long line apart stays linear.
  String CurrentLine;
  int Pos;
  // The physical lines that NUL bytes joined onto the current line; the next
  // line's number counts them.
  int Joined;

  int Remaining() const { return CurrentLine.Length() - Pos; }
  int AtStreamEnd() const;
  // Makes the unread rest the whole of CurrentLine.
  void Compact();
  // The token at Pos into result: up to the same quote, or a word.
  void TakeQuoted(String& result);
  void TakeWord(String& result);
};

// 1 when line holds more than the bytes of blank (blanks and tabs unless told
// otherwise): a reader notes a line it skips only then.
int IsWritten(const String& line, const char* blank = " \t");

// The template file: everything from "//" to the line end is a comment, and
// lines that are empty after removing it are skipped.
class tFilterTemplateFile : public tParseableFile {
 public:
  explicit tFilterTemplateFile(const char* name, tReadNotes& notes = tReadNotes::Silent())
      : tParseableFile(name, notes) {}
  void Next() override;
};

// The data input: only lines that begin with "###" are delivered, without those
// three characters; every other line is skipped.
class tFilterDataFile : public tParseableFile {
 public:
  explicit tFilterDataFile(const char* name, tReadNotes& notes = tReadNotes::Silent())
      : tParseableFile(name, notes) {}
  void Next() override;
};

#endif
