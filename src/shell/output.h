// Printing to standard output.
#pragma once

#include "config/value_buffer.h"
#include "shell/context.h"

#include <initializer_list>

// Formats to standard output like printf and flushes it, so that a message appears before the
// next raw read or child process. Returns the number of characters printed.
[[gnu::format(printf, 1, 2)]] int cli_printf(const char *format, ...);

// Prints each text as a line of its own.
void print_lines(std::initializer_list<const char *> lines);

// Prints a refusal like cli_printf. Returns CLI_REFUSED, for a handler to return in turn.
[[gnu::format(printf, 1, 2)]] int refuse(const char *format, ...);

// Prints like cli_printf why a check failed. Returns false, for the check to return in turn.
[[gnu::format(printf, 1, 2)]] bool complain(const char *format, ...);

// Makes a value that others chose, such as a neighbour's SSID or a client's host name, safe to
// print: each control character (below 0x20, and 0x7f) becomes "?", in place. Bytes from 0x80 on
// stay, for names in UTF-8. Returns the text.
const char *printable_text(ReadTarget value);

// The name of a switch's state.
inline const char *enable_word(bool on) {
    return on ? "enable" : "disable";
}

// The capitalised form of the same.
inline const char *capital_enable_word(bool on) {
    return on ? "Enable" : "Disable";
}
