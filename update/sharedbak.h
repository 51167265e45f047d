#ifndef RULEFORGE_UPDATE_SHAREDBAK_H
#define RULEFORGE_UPDATE_SHAREDBAK_H

#include "update/target.h"

// Refuses a target whose backup name another filter file of its folder has
// too (gw.flt and gw.txt both back up to gw.bak): saving one would replace the
// other's backup. A file counts as a filter file when it is a regular file that
// holds a parseable section's banner line; a template beside the file does
// not. Reports error 16 and returns 0 on a conflict; 1 otherwise.
int BackupIsOwn(const tUpdateTarget& target);

#endif
