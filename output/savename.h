#ifndef RULEFORGE_OUTPUT_SAVENAME_H
#define RULEFORGE_OUTPUT_SAVENAME_H

#include "text/str.h"

// The name a save to a named file keeps the old version under.

// The file name with its extension replaced by ".bak": out.flt gives out.bak,
// a.b.c gives a.b.bak; a dot in a directory name is not an extension, so
// dir.d/out gives dir.d/out.bak.
String BackupName(const String& fileName);

#endif
