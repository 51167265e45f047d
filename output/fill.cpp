#include "output/fill.h"

#include <cstring>

namespace {

const char* const kPlaceText[tPlaceFill::Places] = {"${0}", "${1}", "${0R}", "${1R}", "${L}"};
const int kPlaceLength[tPlaceFill::Places] = {4, 4, 5, 5, 4};

// The place that begins at p, which holds a '$', or -1.
int PlaceAt(const char* p, const char* end) {
  if (end - p < 4 || p[1] != '{') return -1;
  if (p[2] == 'L') return p[3] == '}' ? tPlaceFill::Label : -1;
  if (p[2] != '0' && p[2] != '1') return -1;
  int second = p[2] == '1';
  if (p[3] == '}') return tPlaceFill::Value0 + second;
  if (p[3] == 'R' && end - p >= 5 && p[4] == '}') return tPlaceFill::Resolved0 + second;
  return -1;
}

// Whether a place that fill fills occurs anywhere in the n bytes at p.
bool HoldsFilledPlace(const char* p, size_t n, const tPlaceFill& fill) {
  const char* end = p + n;
  while (const char* at = static_cast<const char*>(std::memchr(p, '$', end - p))) {
    int place = PlaceAt(at, end);
    if (place >= 0 && fill.With[place]) return true;
    p = at + 1;
  }
  return false;
}

}  // namespace

String FillStepByStep(const String& text, const tPlaceFill& fill) {
  String made = text;
  for (int place = 0; place < tPlaceFill::Places; ++place) {
    if (fill.With[place]) made.ReplaceAll(kPlaceText[place], fill.With[place]->Text());
  }
  return made;
}

void tFillPlan::Split(const String& text) {
  Text = &text;
  Chars = text.Text();
  Pieces.clear();
  const char* p = Chars;
  const char* end = p + text.Length();
  const char* piece = p;
  while (const char* at = static_cast<const char*>(std::memchr(p, '$', end - p))) {
    int place = PlaceAt(at, end);
    p = at + 1;
    if (place < 0) continue;
    Pieces.push_back(tPiece{static_cast<int>(piece - Chars), static_cast<int>(at - piece), place});
    piece = p = at + kPlaceLength[place];
  }
  Pieces.push_back(tPiece{static_cast<int>(piece - Chars), static_cast<int>(end - piece), -1});
}

// Places begin with "${" and end with "}" and hold neither inside, so no two
// occurrences of them overlap. An occurrence that the step-by-step method
// would find besides the text's own places therefore lies clear of every place
// filled after it and reaches the one-pass result unchanged. So when that
// result holds no filled place the two methods agree; otherwise the text is
// made step by step.
void tFillPlan::Fill(const tPlaceFill& fill, std::string& out) const {
  // The length first, so that the pieces are copied into place in one go.
  size_t length = 0;
  for (const tPiece& piece : Pieces) {
    length += piece.Length;
    if (piece.Place < 0) break;
    const String* value = fill.With[piece.Place];
    length += value ? value->Length() : kPlaceLength[piece.Place];
  }
  out.resize(length);
  char* put = &out[0];
  for (const tPiece& piece : Pieces) {
    std::memcpy(put, Chars + piece.Start, piece.Length);
    put += piece.Length;
    if (piece.Place < 0) break;
    const String* value = fill.With[piece.Place];
    const char* from = value ? value->Text() : kPlaceText[piece.Place];
    size_t n = value ? value->Length() : kPlaceLength[piece.Place];
    std::memcpy(put, from, n);
    put += n;
  }
  if (HoldsFilledPlace(out.data(), out.size(), fill)) {
    String made = FillStepByStep(*Text, fill);
    out.assign(made.Text(), made.Length());
  }
}
