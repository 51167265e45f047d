#ifndef RULEFORGE_FUZZ_FUZZ_SUPPORT_H
#define RULEFORGE_FUZZ_FUZZ_SUPPORT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "tests/testutil.h"

// What the fuzz targets share: the library reads templates and data by file
// name, so each input goes through a private temporary file (TempFile); and a
// failed property aborts, so that libFuzzer and the replay driver both report
// it, whatever NDEBUG says.

// The bytes as a string, for a TempFile.
inline std::string Bytes(const uint8_t* data, size_t size) {
  return std::string(reinterpret_cast<const char*>(data), size);
}

// A template and a data file from one input: the bytes before its first NUL
// byte are the template, those after it the data (none without a NUL).
struct tTemplateAndData {
  tTemplateAndData(const uint8_t* data, size_t size)
      : Template(Bytes(data, TemplateSize(data, size))),
        Data(Bytes(data + DataStart(data, size), size - DataStart(data, size))) {}
  TempFile Template;
  TempFile Data;

 private:
  static size_t TemplateSize(const uint8_t* data, size_t size) {
    const void* nul = std::memchr(data, 0, size);
    return nul ? static_cast<size_t>(static_cast<const uint8_t*>(nul) - data) : size;
  }
  static size_t DataStart(const uint8_t* data, size_t size) {
    size_t templateSize = TemplateSize(data, size);
    return templateSize < size ? templateSize + 1 : size;
  }
};

class tFilterData;

// An upper bound on the number of texts the output of doc's data would hold.
// Inputs of a few kilobytes can ask for millions (one text per pair of values);
// that is the format working as meant, so the targets skip writing them rather
// than report the time and memory they take.
long long OutputTextBound(tFilterData& doc);
const long long kMaxOutputTexts = 200000;

// The whole output of doc's data as a run writes it, into out; returns what
// writing returned.
int WriteOutput(tFilterData& doc, std::string& out);

// The filter text of doc's data made the plain way: every text made at once
// into a DListtPrioritizedString, the label blocks spliced in, and ${L} and
// the substitutions applied with one ReplaceAll per place and pair. Expands
// doc's records, as writing does.
std::string PlainFilterText(tFilterData& doc);

// Resets the library's global state before an input runs: the last error code
// and the replacements the rescans may make, with bounds low enough that a
// diverging substitution costs milliseconds.
void ResetRun();

[[noreturn]] void FuzzFail(const char* file, int line, const char* what);

#define FUZZ_CHECK(condition) ((condition) ? (void)0 : FuzzFail(__FILE__, __LINE__, #condition))

#endif
