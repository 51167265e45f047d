// Bytes as the data input of a fixed template that uses every feature the
// data can reach: variants with gaps, a companion template, label rules with
// ${L}, substitutions (one whose value holds its own name, one with an empty
// name), ${0R}/${1R}, wildcards and extreme priorities (fuzz/rich.tpl). The
// data is read and the whole output written.
#include <cstddef>
#include <cstdint>
#include <string>

#include "app/common.h"
#include "app/filterd.h"
#include "check/checknotes.h"
#include "check/findings.h"
#include "fuzz/fuzz_support.h"

namespace {

// One run on the given data, the template and the data read with notes: the whole output, or false
// when the run stops with an error or would be too large to write.
bool Regenerate(const void* data, size_t size, std::string& output,
                tReadNotes& notes = tReadNotes::Silent()) {
  ResetRun();
  tFilterData doc(RULEFORGE_FUZZ_TEMPLATE, 0, notes);
  FUZZ_CHECK(error == 0);
  FUZZ_CHECK(doc.MainRules.Size() == 3 && doc.LabelRules.Size() == 2);
  TempFile input(Bytes(static_cast<const uint8_t*>(data), size));
  doc.ReadData(input.Name());
  // Only a missing head and an unknown clause stop a run at this point.
  FUZZ_CHECK(error == 0 || error == 4 || error == 6);
  if (error != 0 || OutputTextBound(doc) > kMaxOutputTexts) return false;
  FUZZ_CHECK(WriteOutput(doc, output) >= 0 && error == 0);
  return true;
}

}  // namespace

// The output read back as data and written again settles after one pass: the
// first output may still change (a variant after an unlabelled one comes back
// one place early, a quoted set name splits), the second may not.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string first, second, third;
  if (!Regenerate(data, size, first)) return 0;
  // A receiver of notes changes nothing of what is read.
  tFindings findings;
  tCheckNotes notes(findings);
  std::string noted;
  FUZZ_CHECK(Regenerate(data, size, noted, notes) && noted == first);
  if (!Regenerate(first.data(), first.size(), second)) return 0;
  if (!Regenerate(second.data(), second.size(), third)) return 0;
  FUZZ_CHECK(second == third);
  return 0;
}
