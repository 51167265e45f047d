#include "output/savename.h"

String BackupName(const String& fileName) {
  String name = fileName;
  int dot = name.AtLast('.');
  if (dot > name.AtLast('/') && dot > name.AtLast('\\')) name = name.Copy(0, dot);
  name += ".bak";
  return name;
}
