#ifndef RULEFORGE_OUTPUT_WRITEERR_H
#define RULEFORGE_OUTPUT_WRITEERR_H

// Reports that writing the output failed (error 8, naming shownName, the name
// the output is known by in messages) and returns -1, the result of a failed
// write.
int WriteFailed(const char* shownName);

#endif
