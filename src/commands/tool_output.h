// Leaves that show what one of the device's tools answers.
#pragma once

#include "commands/fixed_value.h"

// Runs a command line of the program's own text and prints `format` with the tool's output, cut at
// `limit` (at most 1023) characters and without its last newline, for its "%s". Returns 0.
int show_tool_output(const char *command, const char *format, std::size_t limit);

// The handler of such a row.
template <FixedText Command, FixedText Format, std::size_t Limit>
int show_output(CliContext &, const char *, CliCommand *) {
    static_assert(Command.converts_only('\0') && Format.converts_only('s') && Limit <= 1023);
    return show_tool_output(Command.text, Format.text, Limit);
}
