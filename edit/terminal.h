#ifndef RULEFORGE_EDIT_TERMINAL_H
#define RULEFORGE_EDIT_TERMINAL_H

// The terminal while the full-screen editor runs: curses started on it, keys
// read one at a time, colours only where the terminal has them and NO_COLOR
// is not set. The terminal is given back as it was when the object goes, at
// exit, when memory runs out, and on SIGINT, SIGTERM and SIGHUP, which end the
// program as the signal would (nothing is saved then). One at a time.
class tTerminal {
 public:
  tTerminal();
  ~tTerminal();
  tTerminal(const tTerminal&) = delete;
  tTerminal& operator=(const tTerminal&) = delete;

  // The next key, or -1 when none came within wait milliseconds. A signal
  // that ends the program is acted on here.
  int Key(int wait);
  // Whether colours are used.
  bool Colours;
  // Attribute words of the screen's parts, colour or plain.
  int TitleAttr, SelectedAttr, FindingAttr, HeadAttr;

  // Gives the terminal back; safe to call more than once and from exit paths.
  static void Restore();
};

#endif
