#ifndef RULEFORGE_UPDATE_CLEANUP_H
#define RULEFORGE_UPDATE_CLEANUP_H

// Removes the temporary file of an update when the run is ended from outside:
// by SIGINT, SIGTERM or SIGHUP (the run then ends with the signal, status 128
// plus its number) or by running out of memory (error 12). Holds the one
// temporary name of the run in static storage, which the handlers read.

// Installs the handlers of the three signals and the new-handler.
void InstallCleanup();
// From now on the named file in folder (a descriptor) is removed on such an
// end; a null name stops that.
void RemoveOnAbort(int folder, const char* name);

// Holds the three signals back while the file is being replaced and the
// folder synced, so that no end from outside falls between those steps; a
// signal that came meanwhile ends the run when the object is destroyed.
class tSignalsHeld {
 public:
  tSignalsHeld();
  ~tSignalsHeld();
  tSignalsHeld(const tSignalsHeld&) = delete;
  tSignalsHeld& operator=(const tSignalsHeld&) = delete;
};

#endif
