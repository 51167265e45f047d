#ifndef RULEFORGE_TEXT_STR_H
#define RULEFORGE_TEXT_STR_H

#include <cstdio>

// A handle to a shared, reference-counted text that is copied before any change
// (copy-on-write). Copying a String allocates nothing; changing one whose text is
// shared gives it a private copy first, so other holders keep the old text.
// Positions are 0-based; every search takes a start and a count and returns -1
// when nothing is found. The text never holds a NUL byte.
class String {
 public:
  // The count that callers pass to mean "to the end of the text".
  static const int All = 2147483647;

  String();
  String(const char* s);
  String(const String& o);
  ~String();

  // Give the handle a fresh block holding s, or n in decimal; a block it
  // still holds is released first.
  void Make(const char* s);
  void Make(long n);

  String& operator=(const String& o);
  String& operator=(const char* s);
  String& operator+=(const char* s);
  String& operator+=(const String& s);
  String& operator-=(const char* s);

  int Length(int max = All) const;
  String Head(int n) const;
  char& operator[](int i);
  operator char*();
  // The text for reading; valid until the next change of this string.
  const char* Text() const;

  int At(char c, int start = 0, int count = All) const;
  int At(const char* s, int start = 0, int count = All) const;
  // 1 when the text begins with s, else 0: At(s, 0, strlen(s)) == 0 without
  // the search.
  int StartsWith(const char* s) const;
  int AtFirstIn(const char* set, int start = 0, int count = All) const;
  int AtFirstNotIn(const char* set, int start = 0, int count = All) const;
  int AtLast(char c, int start = 0, int count = All) const;

  String Copy(int start, int count = All) const;
  String Cut(int start, int count = All);
  String CutHead(int n);
  String& Paste(const char* s, int pos);
  String& ReplaceAll(const char* from, const char* to);
  String Strip(const char* set) const;
  String& ToUpper();
  // What a read of a line met beside the text it gave: whether the line held
  // a NUL byte, and how many line ends such bytes hid (each joins the next
  // physical line on).
  struct tLineRead {
    int NulBytes = 0;
    int Joined = 0;
  };
  // Reads the next line of f without its line end; 0 at the end of the input.
  // With read, also says what the line held that its text does not show.
  int fgets(FILE* f, tLineRead* read = nullptr);

  // Number of handles sharing this string's block (for tests and diagnostics).
  int Shares() const;

 private:
  struct tBlock;
  tBlock* Block;

  // Selects the constructor that takes over a block fresh from NewBlock.
  struct tAdopt {};
  String(tBlock* adopted, tAdopt);

  static tBlock* NewBlock(const char* s, int n, int capacity);
  static tBlock* SharedEmpty();
  static void Release(tBlock* b);
  void Share(const String& other);
  void Unshare();
  void Append(const char* s, int n);
  void Adopt(tBlock* b);
};

String operator+(const String& a, const String& b);
int operator==(const String& a, const String& b);
int operator==(const String& a, const char* b);
int operator!=(const String& a, const String& b);
int operator!=(const String& a, const char* b);

extern String Empty;
extern String Digits;

#endif
