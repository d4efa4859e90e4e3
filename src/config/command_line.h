// Command lines for the system shell.
//
// A command line is made of the program's own text, numbers and foreign words. Foreign words (typed
// by the administrator or read from the database) enter only as ShellWord: those made of letters,
// digits and _ @ % + = : , . / - go in unchanged, all others are quoted, so that the tool gets the
// word as typed and the shell never interprets it.
#pragma once

#include "config/text_utilities.h"

#include <cstddef>
#include <initializer_list>
#include <type_traits>

// A foreign word.
struct ShellWord {
    explicit ShellWord(const char *word) : text(word) {}

    const char *text;
};

// The program's own text; goes in unquoted.
struct ProgramText {
    explicit ProgramText(const char *literal) : text(literal) {}

    const char *text;
};

// One value of a command line.
struct CommandValue {
    CommandValue(int value) : number(value) {}
    CommandValue(ShellWord word) : text(word.text), is_foreign(true) {}
    CommandValue(ProgramText word) : text(word.text) {}

    const char *text = nullptr; // null for a number
    int number = 0;
    bool is_foreign = false;
};

namespace command_checks {

// Has no definition: a call at compile time is an error that shows this name.
void conversions_do_not_fit_the_values();

} // namespace command_checks

// A printf-style command line whose "%d" and "%s" are checked against the values' types when it
// is compiled.
template <class... Values>
struct CommandFormat {
    const char *text;

    template <std::size_t N>
    consteval CommandFormat(const char (&format)[N]) : text(format) {
        constexpr char EXPECTED[] = {(std::is_same_v<Values, int> ? 'd' : 's')..., '\0'};
        if (!converts(format, EXPECTED))
            command_checks::conversions_do_not_fit_the_values();
    }
};

// A finished command line, cut at 1023 characters.
class CommandLine {
public:
    static constexpr std::size_t LIMIT = 1023;

    CommandLine(const char *format, std::initializer_list<CommandValue> values);

    [[nodiscard]] const char *text() const { return text_; }

    // False when the cut fell into a quoted word: the line must not be run then.
    [[nodiscard]] bool is_whole() const { return !cut_in_quotes_; }

private:
    void append(char c);
    void append(const char *text);
    void append_number(int number);
    void append_quoted(const char *word);

    char text_[LIMIT + 1];
    std::size_t length_ = 0;
    bool cut_in_quotes_ = false;
};
