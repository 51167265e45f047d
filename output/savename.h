#ifndef RULEFORGE_OUTPUT_SAVENAME_H
#define RULEFORGE_OUTPUT_SAVENAME_H

#include "text/str.h"

// The names a save to a named file uses beside it.

// The file name up to and including its last slash or backslash; empty when it
// has neither. The temporary file is made there.
String DirectoryPart(const String& fileName);

// The file name with its extension replaced by ".bak": out.flt gives out.bak,
// a.b.c gives a.b.bak; a dot in a directory name is not an extension, so
// dir.d/out gives dir.d/out.bak.
String BackupName(const String& fileName);

#endif
