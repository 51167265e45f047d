#include "output/pairfill.h"

tPairFill::tPairFill(const tPlaceValues& values, const std::deque<String>& resolved, int end0,
                     int end1)
    : Values(values),
      Resolved(resolved),
      End0(end0),
      End1(end1),
      J(0),
      K(0),
      At0(values.Values[0]->FirstLink()),
      At1(nullptr) {}

bool tPairFill::Next(tPlaceFill& fill) {
  if (J == End0) return false;
  if (K == 0) {
    bool has0 = J < Values.Values[0]->Size();
    fill.With[tPlaceFill::Value0] = has0 ? static_cast<const tString*>(At0->Object) : nullptr;
    if (has0) At0 = At0->NextLink;
    fill.With[tPlaceFill::Resolved0] =
        J < Values.Count[0] ? &Resolved[Values.First[0] + J] : nullptr;
    At1 = Values.Values[1]->FirstLink();
  }
  bool has1 = K < Values.Values[1]->Size();
  fill.With[tPlaceFill::Value1] = has1 ? static_cast<const tString*>(At1->Object) : nullptr;
  if (has1) At1 = At1->NextLink;
  fill.With[tPlaceFill::Resolved1] = K < Values.Count[1] ? &Resolved[Values.First[1] + K] : nullptr;
  if (++K == End1) {
    K = 0;
    ++J;
  }
  return true;
}
