#include "parse/parsefil.h"

#include <cerrno>
#include <cstring>

namespace {

const char kSeparators[] = "\t ,";
const char kQuotes[] = "\"'`";

}  // namespace

tParseableFile::tParseableFile(const char* name, tReadNotes& notes)
    : IsOpen(0),
      ReadFailed(0),
      LineNumber(0),
      TakenFrom(0),
      Notes(notes),
      Stream(nullptr),
      CurrentLine(""),
      Pos(0),
      Joined(0) {
  Open(name);
}

tParseableFile::~tParseableFile() {
  if (IsOpen) Close();
}

int tParseableFile::Open(const char* name) {
  if (IsOpen) Close();
  Stream = name ? std::fopen(name, "r") : stdin;
  IsOpen = Stream ? 1 : 0;
  ReadFailed = 0;
  CurrentLine = Empty;
  Pos = 0;
  LineNumber = 0;
  TakenFrom = 0;
  Joined = 0;
  return IsOpen;
}

int tParseableFile::Close() {
  if (!IsOpen) return 1;
  IsOpen = 0;
  FILE* stream = Stream;
  Stream = nullptr;
  if (stream == stdin) return 1;
  return std::fclose(stream) == 0 ? 1 : 0;
}

// A read error ends the input like the end of the file does; Next() records it
// in ReadFailed.
int tParseableFile::AtStreamEnd() const {
  return !IsOpen || std::feof(Stream) || std::ferror(Stream);
}

int tParseableFile::Eof() { return !IsOpen || (AtStreamEnd() && Remaining() == 0); }

void tParseableFile::Compact() {
  if (Pos > 0) {
    CurrentLine = CurrentLine.Copy(Pos);
    Pos = 0;
  }
}

void tParseableFile::Next() {
  Pos = 0;
  if (!IsOpen) {
    CurrentLine = Empty;
    return;
  }
  for (;;) {
    String::tLineRead read;
    if (CurrentLine.fgets(Stream, &read) || CurrentLine.Length() > 0) {
      LineNumber += 1 + Joined;
      Joined = read.Joined;
      if (read.NulBytes) Note(LineNumber, NoteNulByte, CurrentLine);
    }
    if (CurrentLine.Length() > 0 || AtStreamEnd()) break;
  }
  // A descriptor that is not open (a closed standard input) and a directory
  // hold no lines: they read as an empty input, not as a failed one.
  if (std::ferror(Stream) && errno != EBADF && errno != EISDIR) ReadFailed = 1;
}

// At a line's end this is the NUL that ends every String's text.
char tParseableFile::Ch() {
  if (Remaining() == 0) Next();
  return CurrentLine.Text()[Pos];
}

String& tParseableFile::Line() {
  if (Remaining() == 0) Next();
  Compact();
  return CurrentLine;
}

char tParseableFile::GetCh() {
  char c = Ch();
  TakenFrom = LineNumber;
  if (Remaining() > 0) ++Pos;
  if (Remaining() == 0) Next();
  return c;
}

String tParseableFile::GetLine() {
  String rest = Line();
  TakenFrom = LineNumber;
  Next();
  return rest;
}

// The token that begins at Pos with a quote, up to the same quote; it never
// continues onto the next line.
void tParseableFile::TakeQuoted(String& result) {
  char quote = CurrentLine.Text()[Pos];
  int close = CurrentLine.At(quote, Pos + 1);
  if (close < 0) {
    result = CurrentLine.Copy(Pos + 1);
    Next();
    return;
  }
  result = CurrentLine.Copy(Pos + 1, close - Pos - 1);
  Pos = close + 1;
}

// The token that begins at Pos, up to a separator or the line's end.
void tParseableFile::TakeWord(String& result) {
  int end = CurrentLine.AtFirstIn(kSeparators, Pos);
  if (end < 0) {
    result = CurrentLine.Copy(Pos);
    Next();
    return;
  }
  result = CurrentLine.Copy(Pos, end - Pos);
  Pos = end;
}

String tParseableFile::GetString(int width) {
  String result;
  if (Remaining() == 0) Next();
  while (result.Length() == 0 && !Eof()) {
    TakenFrom = LineNumber;
    if (width >= 0) {
      result = CurrentLine.Copy(Pos, width);
      Pos += result.Length();
      break;
    }
    int start = CurrentLine.AtFirstNotIn(kSeparators, Pos);
    if (start < 0) {
      Next();
      continue;
    }
    Pos = start;
    if (std::strchr(kQuotes, CurrentLine.Text()[Pos])) {
      // A quoted token ends the search even when it is empty.
      TakeQuoted(result);
      break;
    }
    TakeWord(result);
  }
  if (Remaining() == 0) Next();
  return result;
}

void tFilterTemplateFile::Next() {
  for (;;) {
    tParseableFile::Next();
    int comment = CurrentLine.At("//");
    if (comment >= 0) CurrentLine = CurrentLine.Copy(0, comment);
    if (!IsOpen || Remaining() > 0 || AtStreamEnd()) break;
  }
}

void tFilterDataFile::Next() {
  for (;;) {
    tParseableFile::Next();
    if (CurrentLine.StartsWith("###")) {
      Pos = 3;
      Note(LineNumber, Remaining() > 0 ? NoteDataLine : NoteBareMarker, CurrentLine);
    } else {
      if (CurrentLine.Length() > 0) Note(LineNumber, NoteDataLineSkipped, CurrentLine);
      CurrentLine = Empty;
    }
    if (!IsOpen || Remaining() > 0 || AtStreamEnd()) break;
  }
}

int IsWritten(const String& line, const char* blank) { return line.AtFirstNotIn(blank) >= 0; }
