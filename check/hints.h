#ifndef RULEFORGE_CHECK_HINTS_H
#define RULEFORGE_CHECK_HINTS_H

#include "rules/clause.h"
#include "text/str.h"

// The lines that findings suggest in place of what was written: each is a line
// that the readers take as meant, built from the words the user wrote. Each
// function returns the suggestion quoted, or two quoted ones joined by "or"
// where the input leaves the choice open.

// A text header line from the words of fields (the header after its '~'),
// joined as the writer joins them: "~0, 110, V". A missing variant or
// priority is 0; a kind other than S or V gives both.
String HeaderHint(const String& fields);
// The known section that name was probably meant as (the same letters in
// another case, or with blanks around them), or null.
const char* MeantSection(const String& name);
// The clause name of a data head line: "### \"Mail\", 1" gives Mail.
String HeadName(const String& line);
// Every labelled variant of clause off, each state in the field the writer
// puts it in (StateField): "0, 0", or ", 0" for variant 1 alone.
String OffStates(const tClauseTemplate& clause);
// A head line of the data without states, with the states of clause (null
// when the name is unknown) off: "### \"Mail\"" gives "### \"Mail\", 0, 0".
String StatesHint(const String& head, const tClauseTemplate* clause);
// The data line with every state that is neither "0" nor "1" written as
// probably meant: 0 for a number 0 and for words such as "no" or "off", 1 for
// all else (which the reader takes as on); a head line (head 1) keeps its
// clause name.
String StateEntriesHint(const String& line, int head);
// The list line with every run of blanks, tabs and ';' inside an entry made a
// comma and a blank: "### a b;c" gives "### a, b, c".
String ListHint(const String& line);
// 1 when a data line can name a clause called name and names it again after
// ruleforge wrote it back between double quotes: the name holds no double
// quote. Else 0.
int CanBeNamed(const String& name);
// The data line with the blanks removed from each entry that SplitAddress
// finds, the rest as written.
String JoinedAddresses(const String& line);

#endif
