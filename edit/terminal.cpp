#include "edit/terminal.h"

#include <curses.h>

#include <csignal>
#include <cstdlib>
#include <new>

#include "app/common.h"

namespace {

volatile std::sig_atomic_t Ending = 0;
bool Active = false;

void NoteSignal(int signal) { Ending = signal; }

[[noreturn]] void OutOfMemoryOnScreen() {
  tTerminal::Restore();
  OutOfMemory();
}

void Catch(int signal) {
  struct sigaction action = {};
  action.sa_handler = NoteSignal;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

}  // namespace

tTerminal::tTerminal() : Colours(false) {
  Catch(SIGINT);
  Catch(SIGTERM);
  Catch(SIGHUP);
  std::atexit(Restore);
  std::set_new_handler(OutOfMemoryOnScreen);
  // Escape alone cancels a question; a terminal sends its sequences faster.
  if (!std::getenv("ESCDELAY")) set_escdelay(25);
  initscr();
  Active = true;
  cbreak();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  curs_set(0);
  Colours = has_colors() && !std::getenv("NO_COLOR");
  TitleAttr = A_REVERSE;
  SelectedAttr = A_REVERSE;
  FindingAttr = A_BOLD;
  HeadAttr = A_BOLD;
  if (Colours) {
    start_color();
    use_default_colors();
    init_pair(1, COLOR_WHITE, COLOR_BLUE);
    init_pair(2, COLOR_RED, -1);
    TitleAttr = COLOR_PAIR(1) | A_BOLD;
    FindingAttr = COLOR_PAIR(2) | A_BOLD;
  }
}

tTerminal::~tTerminal() {
  Restore();
  std::set_new_handler(OutOfMemory);
}

void tTerminal::Restore() {
  if (!Active) return;
  Active = false;
  endwin();
}

int tTerminal::Key(int wait) {
  timeout(wait);
  int key = getch();
  if (Ending) {
    int signal = Ending;
    Restore();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
  }
  return key == ERR ? -1 : key;
}
