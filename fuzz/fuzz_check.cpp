// Bytes as a check: everything before the first NUL byte is the template
// file, everything after it a data file (empty when there is no NUL), both
// checked as ruleforge-check checks them: read with the readers' notes, the
// findings printed, the entries weighed for name lookup (nothing is looked
// up). Then the starting file for the template: ruleforge must read it with
// status 0, and the check must find nothing in it.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "app/common.h"
#include "app/filterd.h"
#include "check/run.h"
#include "fuzz/fuzz_support.h"

namespace {

// Whether the findings printed name the file shown as name.
bool Names(const std::string& findings, const std::string& name) {
  std::string prefix = name + ":";
  for (size_t at = 0; at < findings.size(); at = findings.find('\n', at) + 1) {
    if (findings.compare(at, prefix.size(), prefix) == 0) return true;
    if (findings.find('\n', at) == std::string::npos) break;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ResetRun();
  tTemplateAndData input(data, size);
  TempFile& templateFile = input.Template;
  TempFile& dataFile = input.Data;

  std::vector<const char*> files = {dataFile.Name()};
  int status = -1;
  Captured([&](FILE* out) { status = CheckFiles(templateFile.Name(), files, 1, out); });
  FUZZ_CHECK(status >= 0 && status <= 2);

  TempFile starter;
  int started = -1;
  std::string left = Captured([&](FILE* findings) {
    FILE* out = std::fopen(starter.Name(), "w");
    started = WriteStarterFile(templateFile.Name(), out, findings);
    std::fclose(out);
  });
  FUZZ_CHECK(started >= 0 && started <= 2);
  if (started == 2) return 0;
  FUZZ_CHECK((started == 1) == !left.empty());

  error = 0;
  tFilterData document(templateFile.Name(), 0);
  FUZZ_CHECK(error == 0);
  FUZZ_CHECK(document.ReadData(starter.Name()) == 0 && error == 0);
  std::vector<const char*> start = {starter.Name()};
  std::string found = Captured([&](FILE* out) { CheckFiles(templateFile.Name(), start, 1, out); });
  // A title that ends with a carriage return comes back without it from any
  // data file, which the check of the template reports.
  const String& title = document.TemplateTitle;
  bool titleLost = title.Length() > 0 && title.Text()[title.Length() - 1] == '\r';
  FUZZ_CHECK(titleLost || !Names(found, starter.Name()));
  return 0;
}
