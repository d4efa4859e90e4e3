// Leaves of the command tables that need no function of their own: a fixed write, a shown node, a
// tool run as it stands. Node paths and command lines are template arguments and may hold one
// "%d", for the number of the current band's interface.
#pragma once

#include "shell/command.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

// A text as a template argument.
template <std::size_t N>
struct FixedText {
    char text[N];

    consteval FixedText(const char (&literal)[N]) { std::copy_n(literal, N, text); }

    // True when the text's conversions are these, in this order: "ds" for "%d" and then "%s".
    [[nodiscard]] consteval bool converts(std::string_view conversions) const {
        for (std::size_t at = 0; at + 1 < N; ++at) {
            if (text[at] != '%')
                continue;
            if (!conversions.starts_with(text[++at]))
                return false;
            conversions.remove_prefix(1);
        }
        return conversions.empty();
    }

    // True when the text has at most one conversion, and that is `conversion`.
    [[nodiscard]] consteval bool converts_only(char conversion) const {
        return converts({}) || converts({&conversion, 1});
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

// Writes `value` to the node of `path`, sets the apply bits, prints `message`. Returns 0, also
// when the write failed.
int write_fixed_value(const CliContext &cli, const char *path, const char *value,
                      std::uint32_t apply_bits, const char *message);

// Prints `format` with the node's text, read up to `limit` bytes, for its "%s". Returns 0; or -1
// after `memory_message`.
int show_node_text(const CliContext &cli, const char *path, const char *format, std::size_t limit,
                   const char *memory_message);

// Names a node's number in a display.
using NumberName = const char *(int number);

// Prints `format` with the name of the node's number for its "%s". Returns 0; or -1 after
// `memory_message`.
int show_node_name(const CliContext &cli, const char *path, const char *format, NumberName *name,
                   const char *memory_message);

// Reads a node of at most 10 bytes and prints the one of `lines` that its number counts from 0;
// for any other number "Error: unknown Linited Administration type", deliberately whatever is
// displayed. Returns 0; or -1 after "Error: fail to allocate memery" when the read failed or memory
// ran out.
int print_numbered_line(const char *path, std::initializer_list<const char *> lines);

// "enable" for exactly 1, else "disable".
const char *switch_name(int number);

// Takes the first unread word, left in the ring, and writes it as typed to the node of `path` when
// its decimal value lies in low..high (compared unsigned, so that a negative number does not);
// sets the apply bits and returns 0. Without a word or outside the range prints `message` and
// returns `refusal`.
int write_word_in_range(const CliContext &cli, const char *path, std::uint32_t low,
                        std::uint32_t high, std::uint32_t apply_bits, const char *message,
                        int refusal);

// Runs a command line of the program's own text, with the interface's number for its "%d".
// Returns 0.
int run_fixed_command(const CliContext &cli, const char *command);

inline constexpr char MEMORY_ERROR[] = "memory error!\n";
inline constexpr char CANT_ALLOC_MEMORY[] = " can't alloc memory \n";
inline constexpr char NO_ENOUGH_MEMORY[] = "no enough memory!\n";
inline constexpr char FAIL_TO_ALLOCATE[] = "Error: fail to allocate memery\n"; // spelt so

// The handlers of such rows.

template <FixedText Path, FixedText Value, std::uint32_t ApplyBits, FixedText Message = "">
int write_fixed(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d'));
    return write_fixed_value(cli, Path.text, Value.text, ApplyBits, Message.text);
}

template <FixedText Path, FixedText Format, std::size_t Limit = 4096,
          FixedText MemoryMessage = MEMORY_ERROR>
int show_text(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d') && Format.converts_only('s'));
    return show_node_text(cli, Path.text, Format.text, Limit, MemoryMessage.text);
}

template <FixedText Path, FixedText Format, FixedText MemoryMessage = MEMORY_ERROR>
int show_switch(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d') && Format.converts_only('s'));
    return show_node_name(cli, Path.text, Format.text, switch_name, MemoryMessage.text);
}

template <FixedText Path, FixedText Format, NumberName *Name,
          FixedText MemoryMessage = MEMORY_ERROR>
int show_name(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d') && Format.converts_only('s'));
    return show_node_name(cli, Path.text, Format.text, Name, MemoryMessage.text);
}

template <FixedText Path, FixedText... Lines>
int show_numbered_line(CliContext &, const char *, CliCommand *) {
    return print_numbered_line(Path.text, {Lines.text...});
}

template <FixedText Path, std::uint32_t Low, std::uint32_t High, std::uint32_t ApplyBits,
          FixedText Message, int Refusal = CLI_REFUSED>
int write_in_range(CliContext &cli, const char *, CliCommand *) {
    static_assert(Path.converts_only('d'));
    return write_word_in_range(cli, Path.text, Low, High, ApplyBits, Message.text, Refusal);
}

template <FixedText Command>
int run_fixed(CliContext &cli, const char *, CliCommand *) {
    static_assert(Command.converts_only('d'));
    return run_fixed_command(cli, Command.text);
}

// The tables of plain switches: "1" for enable, "0" for disable.

// A switch without a word, whose help says "enable THING".
template <FixedText Path, std::uint32_t ApplyBits, FixedText Thing>
inline constinit auto switch_rows = command_table({
    {"enable", static_text<FixedText("enable ") + Thing>, write_fixed<Path, "1", ApplyBits>},
    {"disable", static_text<FixedText("disable ") + Thing>, write_fixed<Path, "0", ApplyBits>},
});

// A switch that says "STATUS: Enable", and whose help says "Set THING Enabled".
template <FixedText Path, std::uint32_t ApplyBits, FixedText Thing, FixedText Status>
inline constinit auto reporting_switch_rows = command_table({
    {"enable", static_text<FixedText("Set ") + Thing + FixedText(" Enabled")>,
     write_fixed<Path, "1", ApplyBits, Status + FixedText(": Enable\n")>},
    {"disable", static_text<FixedText("Set ") + Thing + FixedText(" Disabled")>,
     write_fixed<Path, "0", ApplyBits, Status + FixedText(": Disable\n")>},
});
