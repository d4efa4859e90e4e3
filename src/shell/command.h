// Command tables: rows as data, joined and checked at compile time.
#pragma once

#include "shell/context.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// Takes the context, the matched word (lowered; overwritten by the next dispatch level) and the
// row's subtable. Returns a CliResult.
//
// Unless a handler's comment says otherwise: words are ignored; the result is CLI_DONE, or
// CLI_REFUSED after a message, with nothing written. When a read fails that decides what to write,
// the handler writes nothing more and returns CLI_REFUSED; the read has reported the failure. When
// memory runs out it prints its message for that and returns CLI_REFUSED.
using CliHandler = int(CliContext &cli, const char *word, CliCommand *subtable);

// Must be typed in full, and is hidden from listings while the debug level is locked.
inline constexpr char HIDDEN_TAG[] = ".";
// Exists only while the debug level is unlocked. It is the unlocking code itself.
inline constexpr char DEBUG_TAG[] = "kqv80417";

struct CliCommand {
    const char *name;               // the word to type; "" ends the table
    const char *help;               // null: no line of its own in a listing
    CliHandler *handler;            // null ends the table
    CliCommand *subtable = nullptr; // null for a leaf
    const char *tag = nullptr;      // null, HIDDEN_TAG or DEBUG_TAG
    std::uint32_t band_mask = 0;    // 0: on both radios
    std::int32_t match_length = 0;  // scratch of the dispatcher
};

// A table of N rows and its sentinel.
template <std::size_t N>
using CommandTable = std::array<CliCommand, N + 1>;

namespace table_checks {

// Has no definition: a call at compile time is an error that shows this name.
void a_word_stands_twice();

template <std::size_t N>
consteval void check_rows(const std::array<CliCommand, N> &rows) {
    std::array<std::string_view, N> words{}; // the last is the sentinel's
    for (std::size_t row = 0; row + 1 < N; ++row) {
        // A row without a handler stops the compilation here. It is not compared with null, which
        // g++ does not take for a constant under the undefined-behaviour sanitizer.
        [[maybe_unused]] CliHandler &handler = *rows[row].handler;
        words[row] = rows[row].name;
    }
    std::sort(words.begin(), words.end());
    if (std::adjacent_find(words.begin(), words.end()) != words.end())
        a_word_stands_twice();
}

} // namespace table_checks

// Rows without a sentinel: one family's part of a larger table.
template <std::size_t N>
consteval std::array<CliCommand, N> command_rows(const CliCommand (&rows)[N]) {
    std::array<CliCommand, N> copy{};
    for (std::size_t row = 0; row < N; ++row)
        copy[row] = rows[row];
    return copy;
}

// Several groups of rows as one, in the given order. Not consteval, since clang does not take the
// groups of make_table for constants.
template <std::size_t... N>
constexpr auto join_rows(const std::array<CliCommand, N> &...groups) {
    std::array<CliCommand, (N + ... + 0)> rows{};
    std::size_t next = 0;
    [[maybe_unused]] const auto append = [&](const auto &group) {
        for (const CliCommand &row : group)
            rows[next++] = row;
    };
    (append(groups), ...);
    return rows;
}

// The rows of several families in the given order, ended by the sentinel.
template <std::size_t... N>
consteval auto make_table(const std::array<CliCommand, N> &...groups) {
    const auto table = join_rows(groups..., std::array{CliCommand{"", nullptr, nullptr}});
    table_checks::check_rows(table);
    return table;
}

// A complete table of one family.
template <std::size_t N>
consteval CommandTable<N> command_table(const CliCommand (&rows)[N]) {
    return make_table(command_rows(rows));
}

// A table with one row for every item, as `make_row` makes it.
template <class Item, std::size_t N, class MakeRow>
consteval CommandTable<N> command_table_of(const Item (&items)[N], MakeRow make_row) {
    std::array<CliCommand, N> rows{};
    for (std::size_t row = 0; row < N; ++row)
        rows[row] = make_row(items[row]);
    return make_table(rows);
}

// The item of the row that was typed, in the table that command_table_of made of `items`.
template <class Item, std::size_t N>
const Item &item_of_current_row(const Item (&items)[N], const CommandTable<N> &table) {
    return items[current_command - table.data()];
}
