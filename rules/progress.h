#ifndef RULEFORGE_RULES_PROGRESS_H
#define RULEFORGE_RULES_PROGRESS_H

// Receives the progress of writing a filter: a caption for the whole operation
// and one report per step with the percentage reached. A negative answer from
// Report asks the work to stop; a sink that may give one says so in MayStop.
// This class is the silent default: it shows nothing and never asks to stop.
class tProgress {
 public:
  virtual ~tProgress() {}
  virtual int Report(const char* text, int percent) {
    (void)text;
    (void)percent;
    return 0;
  }
  virtual void Caption(const char* text) { (void)text; }
  virtual bool MayStop() const { return false; }
};

#endif
