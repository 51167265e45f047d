#ifndef RULEFORGE_OUTPUT_FILL_H
#define RULEFORGE_OUTPUT_FILL_H

#include <string>
#include <vector>

#include "text/str.h"

// What fills each place of one generated text: the value places, then the
// label place, in the order they are filled. A null entry leaves its place as
// written. Refers to texts it does not own, which must outlive it.
struct tPlaceFill {
  enum { Value0, Value1, Resolved0, Resolved1, Label, Places };
  const String* With[Places] = {};
};

// The literal method: one ReplaceAll per filled place, in order, on a copy of
// text, so a later place also sees what an earlier value brought in.
String FillStepByStep(const String& text, const tPlaceFill& fill);

// A text split once at its places, to be filled many times: Fill writes the
// same text as FillStepByStep to out, in one pass over the pieces wherever
// that gives the same result, and made step by step where not. Refers to the
// text, which must outlive its use and stay unchanged; Split starts over with
// another text.
class tFillPlan {
 public:
  tFillPlan() : Text(nullptr), Chars(nullptr) {}
  explicit tFillPlan(const String& text) { Split(text); }
  void Split(const String& text);
  void Fill(const tPlaceFill& fill, std::string& out) const;

 private:
  // Length bytes of the text from Start on as they stand, then the place
  // Place (-1 after the last piece).
  struct tPiece {
    int Start;
    int Length;
    int Place;
  };
  const String* Text;
  const char* Chars;
  std::vector<tPiece> Pieces;
};

#endif
