#ifndef RULEFORGE_UPDATE_LINKWALK_H
#define RULEFORGE_UPDATE_LINKWALK_H

#include "text/str.h"

// Follows symbolic links by hand, through descriptors of the folders they lie
// in, so that each link is read once. The kernel's rule for links in sticky
// folders open to all (protected_symlinks) applies to links it follows, not to
// links read by hand; it is applied here: such a link that belongs neither to
// the folder's owner nor to the user running the update is not followed
// (error 20), since another user may have put it there.

// The most links followed for one name, as the kernel allows.
const int kMostLinks = 40;

// Reads the link name in folder into linked. Returns 1 when it is a link that
// may be followed, 0 when name is no link (or cannot be read), -1 after error
// 20; shownLink is the link and shownFile the file being updated, as messages
// show them.
int ReadLink(int folder, const char* name, String& linked, const String& shownLink,
             const char* shownFile);

// Opens the folder at path relative to base (a folder's descriptor, or
// AT_FDCWD; an absolute path ignores it) one name at a time, following links
// by ReadLink; links counts the links followed. Returns the descriptor, -1
// when the folder cannot be opened, -2 after error 20.
int OpenFolderAt(int base, const String& path, int& links, const char* shownFile);

#endif
