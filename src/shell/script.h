// Running command lines without a console: `wap-sh`.
#pragma once

#include "shell/command.h"

// True when argv[0] is wap-sh: a name or a path, perhaps with the dash of a login shell. Null is
// not.
bool is_script_name(const char *name);

// Runs the lines that the arguments give, of `-c LINE` (repeatable, each of one or several lines),
// of a file, or of standard input ("-"), in order, against the tables below `root`; `argc` is more
// than 1. Handlers print as at the console; there is no prompt, echo or editing, and the terminal
// mode is untouched. Standard input is read byte by byte, and only for "-".
//
// Lines may end in a carriage return, and the last one without a newline. Lines that are empty or
// begin with "#", after blanks and tabs, are skipped, but counted.
//
// A line fails when its command is unknown or refused, when the database or standard output failed
// during it, and when Ctrl-C ended what it ran. A line that could not be typed at the console, with
// more than LINE_LIMIT characters or one that is not printable ASCII, fails without being run. The
// first failure ends the run; with `-k` only Ctrl-C does, and failures are reported at the end.
// `exit` ends the run, too. Listing a family and `set apply` with nothing to apply are no failures.
//
// Standard error gets "wap-sh: line NUMBER: LINE" for each line that failed. Returns the process's
// exit status: 0; 1 when a line failed; 2, after a message, for wrong arguments (then nothing was
// run) and for a file that cannot be read; 255 when memory runs out at start-up, after reporting
// it.
int run_script(int argc, char **argv, CliCommand *root);
