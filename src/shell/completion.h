// Completing the words of a line from the command tables.
#pragma once

#include "shell/command.h"
#include "shell/line_editor.h"

#include <string_view>

// Completes `line`, the part before the cursor, against the tables below `root`, and writes it into
// `completed`. Words before the last get the spelling of the rows that the dispatcher would choose.
// When one visible row fits the last word, it is completed and followed by a blank; when several
// do, it is completed as far as they agree, and they are listed. After a blank the subtable is
// listed. Nothing is run, and hidden or locked rows stay invisible. Uses the context's argument
// ring and leaves it empty. Returns false when no row fits and the line stays as it is.
bool complete_line(CliContext &cli, CliCommand *root, std::string_view line,
                   char (&completed)[LINE_BUFFER_SIZE]);
