// The vocabulary of rows: handlers and tables that are made of texts, given as template arguments.
// A node's path and a command line may hold one "%d", for the number of the current band's
// interface. `MemoryMessage` is printed when memory runs out. Results are those of handlers, see
// CliHandler.
#pragma once

#include "commands/shared/address.h"
#include "commands/shared/numbered_list.h"
#include "commands/shared/value_rule.h"
#include "config/host_command.h"
#include "shell/command.h"
#include "shell/output.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

// A text as a template argument.
template <std::size_t N>
struct FixedText {
    char text[N];

    consteval FixedText(const char (&literal)[N]) { std::copy_n(literal, N, text); }

    // True when the text has at most one conversion, and that is `conversion`.
    [[nodiscard]] consteval bool converts_only(char conversion) const {
        const char one[] = {conversion, '\0'};
        return converts(text, "") || converts(text, one);
    }
};

template <std::size_t N, std::size_t M>
consteval FixedText<N + M - 1> operator+(const FixedText<N> &first, const FixedText<M> &second) {
    char joined[N + M - 1] = {};
    std::copy_n(second.text, M, std::copy_n(first.text, N - 1, joined));
    return joined;
}

// The text's place in memory, for the help of a row.
template <FixedText Text>
inline constexpr const char *static_text = Text.text;

// Texts that differ by a word: `before`, the word and `after` for each of `words`, which have at
// most `Longest` characters.
template <std::size_t Longest, std::size_t Count, std::size_t N, std::size_t M>
consteval auto texts_around(const char (&before)[N],
                            const std::array<std::string_view, Count> &words,
                            const char (&after)[M]) {
    std::array<std::array<char, N + Longest + M - 1>, Count> texts{};
    for (std::size_t index = 0; index < Count; ++index) {
        char *end = std::copy_n(before, N - 1, texts[index].data());
        end = std::copy(words[index].begin(), words[index].end(), end);
        std::copy_n(after, M, end);
    }
    return texts;
}

// A row for each of such texts.
template <class Names, class Help>
consteval auto rows_for_each(const Names &names, const Help &help, CliHandler *handler) {
    std::array<CliCommand, std::tuple_size_v<Names>> rows{};
    for (std::size_t index = 0; index < rows.size(); ++index)
        rows[index] = {names[index].data(), help[index].data(), handler};
    return rows;
}

inline constexpr char MEMORY_ERROR[] = "memory error!\n";
inline constexpr char CANT_ALLOC_MEMORY[] = " can't alloc memory \n";
inline constexpr char NO_ENOUGH_MEMORY[] = "no enough memory!\n";
inline constexpr char FAIL_TO_ALLOCATE[] = "Error: fail to allocate memery\n"; // spelt so

// Writes.

// Writes `value` to the node of `path`, prints `message`, sets the apply bits. Returns 0 even if
// the write failed.
int write_fixed_value(const CliContext &cli, const char *path, const char *value,
                      std::uint32_t apply_bits, const char *message);

template <FixedText Path, FixedText Value, std::uint32_t ApplyBits, FixedText Message = "">
int write_fixed(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d'));
    return write_fixed_value(cli, Path.text, Value.text, ApplyBits, Message.text);
}

// The table of a switch, "1" for enable and "0" for disable, with "enable THING" as help.
template <FixedText Path, std::uint32_t ApplyBits, FixedText Thing>
inline constinit auto switch_rows = command_table({
    {"enable", static_text<FixedText("enable ") + Thing>, write_fixed<Path, "1", ApplyBits>},
    {"disable", static_text<FixedText("disable ") + Thing>, write_fixed<Path, "0", ApplyBits>},
});

// A switch that prints "STATUS: Enable", with "Set THING Enabled" as help.
template <FixedText Path, std::uint32_t ApplyBits, FixedText Thing, FixedText Status>
inline constinit auto reporting_switch_rows = command_table({
    {"enable", static_text<FixedText("Set ") + Thing + FixedText(" Enabled")>,
     write_fixed<Path, "1", ApplyBits, Status + FixedText(": Enable\n")>},
    {"disable", static_text<FixedText("Set ") + Thing + FixedText(" Disabled")>,
     write_fixed<Path, "0", ApplyBits, Status + FixedText(": Disable\n")>},
});

// The range of a number, and how other words are refused.
struct WordRange {
    std::uint32_t low;
    std::uint32_t high; // compared unsigned: a negative number is above it
    const char *outside;
    const char *missing;
    int refusal; // the result after either message
};

// Writes the first unread word, left in the ring, as typed to the node of `path` when its decimal
// value is in the range, and sets the apply bits.
int write_word_in_range(const CliContext &cli, const char *path, const WordRange &range,
                        std::uint32_t apply_bits);

template <FixedText Path, std::uint32_t Low, std::uint32_t High, std::uint32_t ApplyBits,
          FixedText Outside, int Refusal = CLI_REFUSED, FixedText Missing = Outside>
int write_in_range(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d'));
    static constexpr WordRange RANGE{Low, High, Outside.text, Missing.text, Refusal};
    return write_word_in_range(cli, Path.text, RANGE, ApplyBits);
}

// A setter of one value, the only word left on the line.
struct ValueSetter {
    const char *path;
    ValueRule rule;
    std::uint32_t apply_bits;
    const char *error_line;               // the refusal of a wrong number of words
    const char *value_error = error_line; // the same after the message of the rule or of arg_uint
};

// Takes and checks the word, writes it, sets the apply bits.
int store_value(CliContext &cli, const ValueSetter &setter);

template <const ValueSetter &Setter>
int set_value(CliContext &cli, const char *, CliCommand *) {
    return store_value(cli, Setter);
}

// Takes an address, the only word left, with a reader of address.h. Writes it in canonical form to
// the node of `path` and sets the apply bits. Refused with `message`.
int write_address(CliContext &cli, bool (*take)(CliContext &cli, Ipv4Text &address),
                  const char *path, std::uint32_t apply_bits, const char *message);

template <FixedText Path, std::uint32_t ApplyBits, FixedText Message>
int set_host_address(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d'));
    return write_address(cli, take_host_address, Path.text, ApplyBits, Message.text);
}

template <FixedText Path, std::uint32_t ApplyBits>
int set_netmask(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d'));
    return write_address(cli, take_netmask, Path.text, ApplyBits, "NO Netmask Address!\n");
}

// Displays.

// Prints `format` with the node's text, read up to `limit` bytes, for its "%s".
int show_node_text(const CliContext &cli, const char *path, const char *format, std::size_t limit,
                   const char *memory_message);

template <FixedText Path, FixedText Format, std::size_t Limit = 4096,
          FixedText MemoryMessage = MEMORY_ERROR>
int show_text(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d') && Format.converts_only('s'));
    return show_node_text(cli, Path.text, Format.text, Limit, MemoryMessage.text);
}

// Names a node's number in a display.
using NumberName = const char *(int number);

// Prints `format` with the name of the node's number for its "%s".
int show_node_name(const CliContext &cli, const char *path, const char *format, NumberName *name,
                   const char *memory_message);

template <FixedText Path, FixedText Format, NumberName *Name,
          FixedText MemoryMessage = MEMORY_ERROR>
int show_name(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d') && Format.converts_only('s'));
    return show_node_name(cli, Path.text, Format.text, Name, MemoryMessage.text);
}

// "enable" for exactly 1, else "disable".
const char *switch_name(int number);

template <FixedText Path, FixedText Format, FixedText MemoryMessage = MEMORY_ERROR>
inline constexpr CliHandler *show_switch = show_name<Path, Format, switch_name, MemoryMessage>;

// Prints `format` with the node's number for its "%d".
int show_node_number(const CliContext &cli, const char *path, const char *format);

template <FixedText Path, FixedText Format>
int show_number(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d') && Format.converts_only('d'));
    return show_node_number(cli, Path.text, Format.text);
}

// Reads a node of at most 10 bytes and prints the line of its number, counted from 0. For any other
// number every display prints "Error: unknown Linited Administration type". Deliberate. Refused
// with FAIL_TO_ALLOCATE when the read failed or memory ran out.
int print_numbered_line(const char *path, std::initializer_list<const char *> lines);

template <FixedText Path, FixedText... Lines>
int show_numbered_line(CliContext &, const char *, CliCommand *) {
    static_assert(converts(Path.text, ""));
    return print_numbered_line(Path.text, {Lines.text...});
}

// Makes the text to show of a list's entry; see printable_text.
using EntryText = const char *(ReadTarget entry);

// The name of an entry's number.
template <NumberName *Name>
const char *entry_name(ReadTarget entry) {
    return Name(decimal_value(entry.data));
}

// Prints a line for each of the entries 1..limit up to the first empty one: `format` with the
// entry's number for its "%d" and its text, or what `text` makes of it, for its "%s".
int show_entries(const NumberedList &list, int limit, const char *format,
                 const char *memory_message, EntryText *text);

// In a pattern with two "%d" the first is for the interface's number.
template <FixedText Pattern, FixedText Format, FixedText MemoryMessage = NO_ENOUGH_MEMORY,
          EntryText *Text = nullptr, int Limit = LIST_BOUND>
int show_list(CliContext &cli, const char *, CliCommand *) {
    static_assert(converts(Pattern.text, "d") || converts(Pattern.text, "dd"));
    static_assert(converts(Format.text, "ds"));
    const NumberedList list = converts(Pattern.text, "dd")
                                  ? NumberedList(Pattern.text, interface_number(cli))
                                  : NumberedList(Pattern.text);
    return show_entries(list, Limit, Format.text, MemoryMessage.text, Text);
}

// Tools of the device.

// Runs a command line of the program's own text. Returns 0, whatever the tool does.
int run_fixed_command(const CliContext &cli, const char *command);

template <FixedText Command>
int run_fixed(CliContext &cli, const char *, CliCommand *) {
    static_assert(Command.converts_only('d'));
    return run_fixed_command(cli, Command.text);
}

// Runs a command line and prints `format` with the tool's output, cut at `limit` (at most 1023)
// characters and without its last newline, for its "%s".
int show_tool_output(const CommandLine &line, const char *format, std::size_t limit);

// Formats a command line, runs it and shows the output.
template <FixedText Format, std::size_t Limit, class... Values>
int show_answer(CommandFormat<std::type_identity_t<Values>...> command, const Values &...values) {
    static_assert(Format.converts_only('s') && Limit <= 1023);
    return show_tool_output(CommandLine(command.text, {values...}), Format.text, Limit);
}

// The same for a command line of the program's own text, without a "%d".
template <FixedText Command, FixedText Format, std::size_t Limit>
int show_output(CliContext &, const char *, CliCommand *) {
    return show_answer<Format, Limit>(Command.text);
}
