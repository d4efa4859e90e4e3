// What a recorded command line may be made of.
#pragma once

#include "shell_syntax.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

// A word that the shell has no use for: it needs no quotes.
inline bool is_plain_word(std::string_view word) {
    return word.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                  "0123456789_@%+=:,./-") == std::string_view::npos;
}

// Whether a word is one of the texts, or what a read with a limit left of one.
inline bool is_part_of(std::string_view word, const std::vector<std::string> &texts) {
    return std::any_of(texts.begin(), texts.end(),
                       [word](const std::string &text) { return text.starts_with(word); });
}

// Whether output goes to one of the program's own two places.
inline bool is_own_redirection(const std::string &redirection) {
    return redirection == "2>/dev/null" || redirection == ">/dev/null" ||
           redirection == ">/dev/console";
}

// Whether a word of a command line is plain, one of the program's own, or of `foreign`, perhaps
// behind a directory or a delay.
inline bool is_accounted_for(std::string_view word, const std::vector<std::string> &foreign) {
    static const std::vector<std::string> OWN{"(null)", "submit STUNNEL", "submit CONSOLE"};
    const auto is_known = [&foreign](std::string_view part) {
        return is_plain_word(part) || is_part_of(part, OWN) || is_part_of(part, foreign);
    };
    static constexpr std::string_view PREFIXES[] = {"/tmp/", "AAA:5:"};
    return is_known(word) ||
           std::any_of(std::begin(PREFIXES), std::end(PREFIXES), [&](std::string_view prefix) {
               return word.starts_with(prefix) && is_known(word.substr(prefix.size()));
           });
}

// What is wrong with a command line that was run, "" when nothing is: it must be one simple
// command, made of the program's own words and those of `foreign`.
inline std::string boundary_fault(const std::string &line,
                                  const std::vector<std::string> &foreign) {
    const std::optional<SimpleCommand> command = parse_simple_command(line);
    if (!command)
        return "not one simple command: " + line;
    if (!std::all_of(command->redirections.begin(), command->redirections.end(),
                     is_own_redirection))
        return "a redirection of nobody's: " + line;
    const bool accounted =
        std::all_of(command->words.begin(), command->words.end(),
                    [&](const std::string &word) { return is_accounted_for(word, foreign); });
    return accounted ? "" : "a word of nobody's: " + line;
}
