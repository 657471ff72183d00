// The activity log: the grader's story of a puzzle, with a snapshot of the board for each headline.
//
// The log is the text of Frmlog's box. Each line is appended as line break + line, so the text begins with an
// empty line and the first real one is number 1. A headline names a step; a detail line begins with " * " and
// says what was done.
#pragma once

#include <string>
#include <string_view>

#include "checked.h"

namespace gradino {

/// The number of the log's last line. Headlines written during a long job don't count.
inline constinit Int16 logcount{"logcount"};

// The snapshots, by line number. Detail lines have none: their entries stay empty.
inline Table<std::string, 0, 650> logvalues{"logvalues"};  ///< 81 digits, "0" for an empty cell
inline Table<std::string, 0, 650> logcands{"logcands"};    ///< 81 decimal candmasks, a comma after each
inline Table<bool, 0, 650> logflags{"logflags"};           ///< the nishioflag of that moment

/// Gives the log window its caption when it is first needed. The caption keeps the language of that moment.
void loadlogwindow();

/// Appends one line to the text; counts nothing.
void appendline(std::string_view line);

/// Appends to the last line.
void appendwords(std::string_view words);

/// Counts a headline and keeps the board as it is now. During a long job: nothing.
/// Fault: more than 650 lines.
void counthead();

/// Writes a headline and counts it: what every twin does ahead of its changes.
void headline(std::string_view line);

/// Writes a detail line and counts it.
void detail(std::string_view line);

/// Stores the board as entry logcount of the three tables.
void logsnapshot();

/// Whether entry `line` is a snapshot of the log that is shown. Entries of an earlier log are still there
/// where nothing has overwritten them.
bool hassnapshot(int line);

/// Empties the text but keeps count and snapshots, for a new try of the generator.
void emptylogtext();

/// An empty log. Only entries up to 150 are cleared, as the log of a puzzle needs no more: later ones are
/// overwritten.
void clearlog();

/// The log as in a program just started.
void freshlog();

}  // namespace gradino
