// Completing the words of a line from the command tables.
#pragma once

#include "shell/command.h"
#include "shell/line_editor.h"

#include <string_view>

// Completes `line`, the part before the cursor, against the tables below `root`, and writes it
// into `completed`. Words before the last are rewritten with the spelling of the rows that the
// dispatcher would take. The last word is completed, with a blank behind it, when one visible row
// fits; when several do it is completed as far as they agree and they are listed. Behind a blank
// the subtable is listed. Nothing is run; rows that are hidden or locked stay so. Uses the
// context's argument ring and leaves it empty. Returns false when no row fits and the line stays
// as it is.
bool complete_line(CliContext &cli, CliCommand *root, std::string_view line,
                   char (&completed)[LINE_BUFFER_SIZE]);
