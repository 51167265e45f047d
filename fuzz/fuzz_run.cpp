// Bytes as a whole run: everything before the first NUL byte is the template
// file, everything after it the data input (empty when there is no NUL). The
// template is read, the data read against it and the output written, each
// stage only while no error has been recorded, as a run does. The filter text
// must be the one the plain method makes from the same input read again.
#include <cstddef>
#include <cstdint>
#include <string>

#include "app/common.h"
#include "app/filterd.h"
#include "fuzz/fuzz_support.h"
#include "text/replace.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ResetRun();
  tTemplateAndData input(data, size);
  TempFile& templateFile = input.Template;
  TempFile& dataFile = input.Data;

  tFilterData doc(templateFile.Name(), 0);
  FUZZ_CHECK(error == 0 || error == 2);
  if (error == 0) {
    doc.ReadData(dataFile.Name());
    FUZZ_CHECK(error == 0 || error == 4 || error == 6);
  }
  if (error == 0 && OutputTextBound(doc) <= kMaxOutputTexts) {
    std::string out;
    FUZZ_CHECK(WriteOutput(doc, out) >= 0 && error == 0);
    // Where the rescans' budget for a run ran out, which texts it cut off
    // depends on the order the texts are made in, which differs.
    bool spent = ReplacementBudgetLeft() <= 0;
    RestartReplacementBudget();
    tFilterData again(templateFile.Name(), 0);
    again.ReadData(dataFile.Name());
    std::string plain =
        "## End of parseable section ---------------------------------------------\n\n" +
        PlainFilterText(again);
    spent = spent || ReplacementBudgetLeft() <= 0;
    FUZZ_CHECK(spent || (out.size() >= plain.size() &&
                         out.compare(out.size() - plain.size(), plain.size(), plain) == 0));
  }
  return 0;
}
