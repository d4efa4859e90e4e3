// Everything that the program says.
#pragma once

#include "config/value_buffer.h"
#include "shell/context.h"

#include <initializer_list>

// Formats to standard output like printf and flushes it, so that a message appears before the
// next raw read or child process. Returns the number of characters printed.
[[gnu::format(printf, 1, 2)]] int cli_printf(const char *format, ...);

// Prints each text as a line of its own.
void print_lines(std::initializer_list<const char *> lines);

// Formats a refusal like cli_printf; returns CLI_REFUSED, for a handler to return in turn.
[[gnu::format(printf, 1, 2)]] int refuse(const char *format, ...);

// Says like cli_printf why a check failed; returns false, for the check to return in turn.
[[gnu::format(printf, 1, 2)]] bool complain(const char *format, ...);

// Makes a value that others chose, such as a neighbour's SSID or a client's host name, fit to be
// shown: each control character (below 0x20, and 0x7f) becomes a "?", so that nobody else writes to
// the administrator's terminal. Bytes from 0x80 on stay, for names in UTF-8. Returns the text,
// which is changed in place.
const char *printable_text(ReadTarget value);

// The name of a switch's state: "enable" when it is 1, "disable" for everything else.
inline const char *enable_word(bool on) {
    return on ? "enable" : "disable";
}

// The capitalised form of the same.
inline const char *capital_enable_word(bool on) {
    return on ? "Enable" : "Disable";
}
