#ifndef RULEFORGE_APP_ABOUT_H
#define RULEFORGE_APP_ABOUT_H

// One option as --help lists it: its spelling, with the name of its value when
// it takes one ("-t templatefile"), and what it does in one line.
struct tOptionHelp {
  const char* Spelling;
  const char* Text;
};

// What a program beside ruleforge says about itself when asked: its name, its
// usage (the words after the name, one usage a line) and its options. The
// texts are the caller's and must outlive the call.
struct tProgramHelp {
  const char* Name;
  const char* const* Usages;
  int UsageCount;
  const tOptionHelp* Options;
  int OptionCount;
};

// When a word of the command line is --help or --version, prints the usage
// with one line per option, or the program's name and version, on standard
// output and returns the exit status: 0, or 8 after error 8 when the text could
// not be written. Returns -1 and prints nothing when neither was asked for. A
// word that is an option's value (the name after -t) is not taken as a request.
int AnswerHelpOrVersion(int argc, char** argv, const tProgramHelp& program);

#endif
