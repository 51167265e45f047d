#include <cstring>
#include <new>

#include "app/common.h"
#include "app/filterd.h"
#include "text/str.h"

// ruleforge [-r] [-t templatefile] [-d]
// Reads the previous output (or any parseable section) on standard input and
// writes the regenerated parseable section and filter on standard output.
int main(int argc, char** argv) {
  std::set_new_handler(OutOfMemory);
  String templateName;
  int resolve = 1;
  int dump = 0;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "-r") == 0) {
      resolve = 0;
    } else if (std::strcmp(argv[i], "-t") == 0) {
      // The next word is the name, whatever it looks like.
      templateName = i + 1 < argc ? argv[++i] : "";
    } else if (std::strcmp(argv[i], "-d") == 0) {
      dump = 1;
    } else {
      Error(0, String("Unrecognized commandline option '") + argv[i] + "'. Use: " + argv[0] +
                   " [-r] [-t templatefile]");
      return 1;
    }
  }

  int status;
  {
    tFilterData document(templateName.Length() > 0 ? templateName.Text() : nullptr, resolve);
    if (error == 0 && dump) document.WriteTemplate("/tmp/template.dmp");
    if (error == 0) document.ReadData(nullptr);
    if (error == 0) document.WriteData();
    status = error;
  }
  return status;
}
