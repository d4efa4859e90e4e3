// Running command lines without a console: `wap-sh`.
#pragma once

#include "shell/command.h"

// Whether `name`, as argv[0] has it (a path, a dash of `login` before it, null), is wap-sh.
bool is_script_name(const char *name);

// Runs the lines that the arguments give, of `-c LINE` (repeatable, each of one or several lines),
// of a file, or of standard input ("-"), in order, against the tables below `root`; `argc` is more
// than 1. Handlers print as at the console; there is no prompt, echo or editing, and the terminal
// stays as it is. Standard input is read byte by byte, and only for "-".
//
// Lines may end in a carriage return, the last one need not end in a newline. Lines that are empty
// or begin with "#", after blanks and tabs, are skipped, whatever else they hold. All lines count.
//
// A line fails when it is unknown or refused, when the database or standard output failed during
// it, when Ctrl-C ended what it ran, and, without being run, when it could not be typed at the
// console: more than LINE_LIMIT characters, or one that is no printable ASCII. The first failure
// ends the run; with `-k` only Ctrl-C does, and all are reported at the end. `exit` ends the run,
// too. Listing a family and a `set apply` with nothing to apply are no failures.
//
// Standard error gets "wap-sh: line NUMBER: LINE" for each line that failed. Returns the process's
// exit status: 0; 1 when a line failed; 2, after a message, for wrong arguments (then nothing was
// run) and for a file that cannot be read; 255 when memory runs out at start-up, after reporting
// it.
int run_script(int argc, char **argv, CliCommand *root);
