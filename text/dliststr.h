#ifndef RULEFORGE_TEXT_DLISTSTR_H
#define RULEFORGE_TEXT_DLISTSTR_H

#include <cstddef>
#include <cstring>
#include <string>

#include "text/dlist.h"
#include "text/slotpool.h"
#include "text/str.h"

// A String that can live in a DList; ordered by its text, byte by byte.
// Elements of exactly this class, and of tPrioritizedString, come from pools of
// equal slots, which a value list of a million entries fills with a million of
// them at half the cost of separate allocations.
class tString : public String, public tObject, public tPooled<tString> {
 public:
  tString();
  tString(const char* s);
  tString(const String& s);
  tString(const tString& o);
  int Greater(tObject* other) override;
  int Equals(tObject* other) override;
  tObject* Clone() override;
  ~tString() override;
};

// A generated or template text with the priority that orders it in the output.
// Compared by priority only; the text plays no part in the order.
class tPrioritizedString : public tString, public tPooled<tPrioritizedString> {
 public:
  using tPooled<tPrioritizedString>::operator new;
  using tPooled<tPrioritizedString>::operator delete;

  int Priority;

  tPrioritizedString();
  tPrioritizedString(const String& s, int priority);
  tPrioritizedString(const tPrioritizedString& o);
  int Greater(tObject* other) override;
  int Equals(tObject* other) override;
  tObject* Clone() override;
  ~tPrioritizedString() override;
};

// How a text splits into pieces: a piece ends after each separator or at the
// end (with skipLeading, separators before a piece are passed over), and the
// bytes of strip are removed wherever they stand in it. Built once for a rule
// that splits many lines.
class tPieceRule {
 public:
  tPieceRule(const char* separators, const char* strip, int skipLeading);
  // Hands each piece of text to take(piece, start, glued) in order: start is
  // where the piece begins in text, and glued says whether a blank or tab was
  // removed between two of the bytes kept. The bytes of piece are valid during
  // the call only.
  template <class F>
  void ForEach(const char* text, F take) const;

 private:
  bool Separator[256];
  bool Stripped[256];
  int SkipLeading;
  bool IsSeparator(char c) const { return Separator[static_cast<unsigned char>(c)]; }
  bool IsStripped(char c) const { return Stripped[static_cast<unsigned char>(c)]; }
};

// A list of texts; also splits a value line into entries (tPieceRule) and
// joins them back.
class DListtString : public DList {
 public:
  tString* Current() const;
  tString* operator[](int i);
  void FromString(const char* text, const char* separators, const char* strip, int skipLeading);
  void FromString(const char* text, const tPieceRule& rule);
  String ToString(const char* separator, int trailing);
  ~DListtString() override;
};

// Texts kept in ascending priority, ties in the order of insertion.
class DListtPrioritizedString : public DList, public tPooled<DListtPrioritizedString> {
 public:
  DListtPrioritizedString();
  tPrioritizedString* Current() const;
  // Links p in after every text whose priority is at most its own and before
  // the first with a greater one, and makes it the current element. Walks
  // from the cursor: fast when texts arrive near their place, as a
  // template's texts do; the output orders its texts by other means.
  void ToSorted(tPrioritizedString* p);
  ~DListtPrioritizedString() override;
};

template <class F>
void tPieceRule::ForEach(const char* text, F take) const {
  if (!text) return;
  std::string piece;
  const char* end = text + std::strlen(text);
  while (text < end) {
    if (SkipLeading) {
      while (text < end && IsSeparator(*text)) ++text;
      if (text == end) break;
    }
    const char* start = text;
    const char* stop = text;
    while (stop < end && !IsSeparator(*stop)) ++stop;
    if (stop < end) ++stop;
    piece.clear();
    // The length of piece at the first blank or tab removed after a byte kept.
    size_t blankAt = std::string::npos;
    for (; text < stop; ++text) {
      char c = *text;
      if (!IsStripped(c)) {
        piece.push_back(c);
      } else if ((c == ' ' || c == '\t') && blankAt == std::string::npos && !piece.empty()) {
        blankAt = piece.size();
      }
    }
    take(piece, start, blankAt != std::string::npos && piece.size() > blankAt);
  }
}

#endif
