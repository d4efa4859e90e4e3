// Reading command lines as the system shell does, to prove that they ask for one command only.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct SimpleCommand {
    std::vector<std::string> words;        // the command and its arguments, unquoted
    std::vector<std::string> redirections; // "FD>FILE", in order
};

// Nothing when the line is anything but one simple command of plain words: when it has an operator,
// expansion, pattern, assignment, comment or newline outside of quotes, or quotes that do not end.
// Redirections of output are read. The words of this program's own texts hold none of these, but
// for "(null)", which is taken for a word.
std::optional<SimpleCommand> parse_simple_command(std::string_view line);
