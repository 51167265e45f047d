#ifndef RULEFORGE_UPDATE_REPLACE_H
#define RULEFORGE_UPDATE_REPLACE_H

#include "update/target.h"
#include "update/tempfile.h"

// Puts the complete, named temporary file in the place of the target: the old
// file is kept as the backup by a hard link, then the new version is renamed
// over the file in one step, so that the name always holds a complete
// version. Where the file system has no hard links the file is renamed to the
// backup name first. Reports warning 4 and errors 9 and 10 with where each
// version is; returns 1 when the backup holds the old version, 0 when an old
// backup that could not be removed stayed instead, -1 after an error.
int Replace(tUpdateTarget& target, tTemporaryFile& temporary);

// When the folder is synced: before anything of the new version has a name,
// or after it replaced the file, with or without a backup of the old one.
enum tSyncMoment { kSyncBefore, kSyncBackedUp, kSyncNoBackup };

// Syncs the target's folder, so that the names made in it reach the disk.
// Whether that worked; if not, reports error 18 with what it means at that
// moment.
bool SyncFolder(tUpdateTarget& target, tSyncMoment moment);

#endif
