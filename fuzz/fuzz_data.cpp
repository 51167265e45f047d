// Bytes as the data input of a fixed template that uses every feature the
// data can reach: variants with gaps, a companion template, label rules with
// ${L}, substitutions (one whose value holds its own name, one with an empty
// name), ${0R}/${1R}, wildcards and extreme priorities. The data is read and
// the whole output written to /dev/null.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "app/common.h"
#include "app/filterd.h"
#include "fuzz/fuzz_support.h"

namespace {

const char kTemplate[] =
    "VRK Filter Template File\n"
    "Fuzz rich\n"
    "~~~~Substitutions\n"
    "|IFACE|eth0|\n"
    "|@|/|\n"
    "|LOOP|LOOP+|\n"
    "||empty|\n"
    "~~~~Main Rules\n"
    "~~~\n"
    "\"Fixed\",  \"\",\"\",\"\",\"\",  \"\",\"\"\n"
    "~0, 0, S\n"
    "@@ filter for IFACE\n"
    "~3, 100, S\n"
    "@@ end ${L} ${0}\n"
    "~~~\n"
    "\"Allow\",  \"Permit\",\"Log\",\"\",\"Audit\",  \"Hosts\",\"Ports\"\n"
    "~0, 10, V\n"
    "allow ${0R} port ${1R}\n"
    "~1, 20, V\n"
    "log ${0} ${1}\n"
    "~3, -5, V\n"
    "audit ${0R}\n"
    "~0, 2147483647, S\n"
    "top\n"
    "~~\n"
    "\"Allow reply\",  \"Always\",\"\",\"\",\"\",  \"Hosts\",\"\"\n"
    "~0, 30, V\n"
    "reply ${0} ${1R} LOOP\n"
    "~~~\n"
    "\"Open\",  \"\",\"Maybe\",\"\",\"\",  \"\",\"\"\n"
    "~0, 5, V\n"
    "open ${0} ${1}\n"
    "~1, -2147483648, S\n"
    "bottom\n"
    "~~~\n"
    "~~~~Label Rules\n"
    "~50\n"
    "~~~\n"
    "\"Label block\",  \"Enable\",\"Twice\",\"\",\"\",  \"Ports\",\"Peers\"\n"
    "~0, 0, S\n"
    "label ${L}:\n"
    "~0, 1, V\n"
    "port ${0} on ${L} to ${1R}\n"
    "~1, 1, V\n"
    "again ${0R} ${L}\n"
    "~~\n"
    "\"Label reply\",  \"On\",\"\",\"\",\"\",  \"\",\"\"\n"
    "~0, 2, V\n"
    "back ${L} ${0}\n"
    "~~~\n"
    "\"Plain label\",  \"Use\",\"\",\"\",\"\",  \"\",\"\"\n"
    "~0, 60, S\n"
    "plain ${L}\n"
    "~~~\n";

const TempFile& TemplateFile() {
  static TempFile file(kTemplate, std::strlen(kTemplate));
  return file;
}

}  // namespace

namespace {

// One run on the given data: the whole output, or false when the run stops
// with an error or would be too large to write.
bool Regenerate(const void* data, size_t size, std::string& output) {
  ResetRun();
  tFilterData doc(TemplateFile().Path(), 0);
  FUZZ_CHECK(error == 0);
  FUZZ_CHECK(doc.MainRules.Size() == 3 && doc.LabelRules.Size() == 2);
  TempFile input(data, size);
  doc.ReadData(input.Path());
  // Only a missing head and an unknown clause stop a run at this point.
  FUZZ_CHECK(error == 0 || error == 4 || error == 6);
  if (error != 0 || OutputTextBound(doc) > kMaxOutputTexts) return false;
  char* buffer = nullptr;
  size_t length = 0;
  FILE* out = open_memstream(&buffer, &length);
  FUZZ_CHECK(out != nullptr);
  tProgress progress;
  int result = doc.DataSets.WriteTo(out, "", doc.TemplateTitle.Text(), doc.FirstLabel,
                                    doc.SubstitutionNames, doc.SubstitutionValues, progress);
  std::fclose(out);
  output.assign(buffer, length);
  std::free(buffer);
  FUZZ_CHECK(result >= 0 && error == 0);
  return true;
}

}  // namespace

// The output read back as data and written again settles after one pass: the
// first output may still change (a variant after an unlabelled one comes back
// one place early, a quoted set name splits), the second may not.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string first, second, third;
  if (!Regenerate(data, size, first)) return 0;
  if (!Regenerate(first.data(), first.size(), second)) return 0;
  if (!Regenerate(second.data(), second.size(), third)) return 0;
  FUZZ_CHECK(second == third);
  return 0;
}
