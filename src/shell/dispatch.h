// Finding and running the command that a line names.
#pragma once

#include "shell/command.h"

#include <string_view>

// What a word matches in a table.
struct CommandMatch {
    CliCommand *row; // the row taken; null when the word names none
    bool several;    // more than one row shares a beginning with the word
    bool exact;      // the row was named in full
};

// True when the row's name begins with `word`, ignoring case.
bool name_begins_with(const CliCommand &row, std::string_view word);

// Copies a word into the context's word buffer, lowered for matching, and returns it there.
std::string_view prepare_word(CliContext &cli, const char *word);

// Matches a prepared word against a table: exactly (ignoring case), else by the longest common
// beginning, ties going to the first row in table order. The latter rewrites every row's match
// length.
CommandMatch match_command(const CliContext &cli, CliCommand *table, std::string_view word);

// Takes the next word, finds its row in `table` and runs the handler. Without a row prints "Unknown
// command" or "Invalid parameter" and a hint. Prints the listing that a handler asks for. Returns 0
// when no word is left, else a CliResult.
int cli_dispatch(CliContext &cli, CliCommand *table);

// The handler of every family row: asks for the family's listing when no word is left, else
// dispatches into the subtable. Returns 1 for a null subtable.
CliHandler dispatch_subtable;

// The row of a family, with the family's table.
template <std::size_t N>
constexpr CliCommand family(const char *name, const char *help, std::array<CliCommand, N> &table,
                            const char *tag = nullptr) {
    return {name, help, dispatch_subtable, table.data(), tag};
}
