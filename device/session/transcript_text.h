// The lines of a transcript: how bytes become readable text and back, and what a line is.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace session {

// Control characters other than tab, and bytes that are not ASCII, as \xNN; a backslash as "\\".
std::string escape_text(std::string_view bytes);

// As escape_text, with \r \n \t \e where they apply: for `keys` lines.
std::string escape_keys(std::string_view bytes);

// Undoes both; knows \a \b \e \f \n \r \t \v \\ and \xNN (exactly two digits). Nothing when
// another escape stands in `text`.
std::optional<std::string> unescape(std::string_view text);

enum class LineKind {
    OUTPUT, // everything that is not one of the others
    BLANK,
    COMMENT,      // # title or comment
    PIPED,        // piped
    BOOT,         // boot COMMAND
    GIVEN,        // given PATH = VALUE
    STOP,         // stop xmldb
    COMMAND,      // WAP-> LINE
    CHILD_INPUT,  // < LINE
    KEYS,         // keys BYTES
    END_OF_INPUT, // end of input
    PATTERN,      // ~ REGEX
    JOURNAL,      // wrote, deleted or ran, indented by two blanks
    EXITED,       // exited STATUS
};

LineKind line_kind(std::string_view line);

// What follows the word that gives `line` its kind.
std::string_view line_argument(std::string_view line);

// A line of a kind that has such a word, and what follows it.
std::string keyword_line(LineKind kind, std::string_view argument);

// What a program printed, as transcript lines: a last line without newline ends in "\c", a line
// that could be taken for another kind begins with "\&". An empty line is an empty text.
std::vector<std::string> output_lines(std::string_view printed);

// A journal line as transcript line.
std::string journal_line(std::string_view line);

// The transcript line for the program's end.
std::string exit_line(int status);

// An output or journal line as the functions above write it, from one that was written by hand.
// Nothing when it holds an unknown escape.
std::optional<std::string> normal_line(std::string_view line);

} // namespace session
