#include "output/savename.h"

String DirectoryPart(const String& fileName) {
  int slash = fileName.AtLast('/');
  int backslash = fileName.AtLast('\\');
  int last = slash > backslash ? slash : backslash;
  return fileName.Copy(0, last + 1);
}

String BackupName(const String& fileName) {
  String name = fileName;
  int dot = name.AtLast('.');
  if (dot > name.AtLast('/') && dot > name.AtLast('\\')) name = name.Copy(0, dot);
  name += ".bak";
  return name;
}
