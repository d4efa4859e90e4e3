// Leaves that show what one of the device's tools answers.
#pragma once

#include "commands/shared/fixed_value.h"
#include "config/host_command.h"

// Runs a command line and prints `format` with the tool's output, cut at `limit` (at most 1023)
// characters and without its last newline, for its "%s". Returns 0.
int show_tool_output(const CommandLine &line, const char *format, std::size_t limit);

// Formats a command line, runs it and shows the output.
template <FixedText Format, std::size_t Limit, class... Values>
int show_answer(CommandFormat<std::type_identity_t<Values>...> command, const Values &...values) {
    static_assert(Format.converts_only('s') && Limit <= 1023);
    return show_tool_output(CommandLine(command.text, {values...}), Format.text, Limit);
}

// The handler of a row with a command line of the program's own text.
template <FixedText Command, FixedText Format, std::size_t Limit>
int show_output(CliContext &, const char *, CliCommand *) {
    return show_answer<Format, Limit>(Command.text);
}
