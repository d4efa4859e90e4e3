// Running the device's tools and scripts through the system shell.
#pragma once

#include "config/command_line.h"
#include "config/value_buffer.h"

// How many command lines were run. Each may have read from standard input, which it shares.
extern unsigned command_lines_run;

// How many of those that were not captured ended by the keyboard's interrupt.
extern unsigned command_lines_interrupted;

// Makes standard output and error wait for whoever reads them. The program itself never asks for
// anything else, but a tool may leave a terminal or pipe that it shares in non-blocking mode, where
// text that does not fit at once would be lost.
void make_output_blocking();

// Flushes standard output and runs the line, waiting for its end. Returns the shell's status; or
// -1 when it could not be run, or was not because its cut fell into a quoted word ("Command line
// too long." on standard error).
int run_command_line(const CommandLine &line);

// Runs the line and captures its output, cut at the target's limit and without its last newline.
// Output beyond the limit is read and dropped, so that no tool blocks. Returns 0; or -1, with an
// empty text, when the line could not be run.
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
