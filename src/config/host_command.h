// Running the device's tools and scripts through the system shell.
#pragma once

#include "config/command_line.h"
#include "config/value_buffer.h"

// How many command lines were run. Each may have read from standard input.
extern unsigned command_lines_run;

// How many uncaptured ones were ended by Ctrl-C.
extern unsigned command_lines_interrupted;

// Puts standard output and error into blocking mode. A tool may have left a shared terminal or pipe
// in non-blocking mode, in which text that does not fit at once would be lost.
void make_output_blocking();

// Flushes standard output, runs the line and waits for its end. Returns the shell's status; or -1
// when it could not be run, or was cut in a quoted word ("Command line too long." on standard
// error).
int run_command_line(const CommandLine &line);

// Runs the line and captures its output, cut at the target's limit and without its last newline.
// Output beyond the limit is discarded. Returns 0; or -1, with an empty text, when the line could
// not be run.
int capture_command_line(ReadTarget target, const CommandLine &line);

// Formats a command line and runs it; see run_command_line.
template <class... Values>
int run_command(CommandFormat<std::type_identity_t<Values>...> format, const Values &...values) {
    return run_command_line(CommandLine(format.text, {values...}));
}

// Formats a command line and captures its output; see capture_command_line.
template <class... Values>
int cmd_capture(ReadTarget target, CommandFormat<std::type_identity_t<Values>...> format,
                const Values &...values) {
    return capture_command_line(target, CommandLine(format.text, {values...}));
}

// Saves the configuration to flash.
void save_configuration();
