// Printing command tables as help.
#pragma once

#include "shell/command.h"

// How deep a listing goes.
enum ListLevel : int {
    LIST_ROWS = 0,   // the table's own rows only
    LIST_FAMILY = 1, // its rows, and one level below those that have a subtable
    LIST_TREE = 10,  // every leaf below it
};

// Set by completion: the next cli_list looks at the first row of its table only.
extern bool list_first_row_only;

// Prints the visible rows of `table` as "prefix name -- help" lines. `filter` (null for none) keeps
// the rows whose names begin with it, case-sensitively. Levels 2 to 9 print nothing for rows with a
// subtable. Returns 0.
int cli_list(CliContext &cli, const CliCommand *table, const char *prefix, const char *filter,
             int level);

// `help` and `?`: lists the root table, the whole tree when any word follows. Returns 0.
CliHandler show_help;
