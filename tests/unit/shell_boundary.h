// What a recorded command line may be made of.
#pragma once

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <wordexp.h>

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

// The words of one simple command, as the system's shell reads them; nothing when the line is more
// than that. The program's own redirections are left out, and its "(null)" stands without brackets.
// Empty words are left out as well: the C library takes those quotes for one in which nothing
// stands at the start of a word.
inline std::optional<std::vector<std::string>> shell_words(std::string line) {
    for (const std::string_view redirection :
         {" 2> /dev/null", " 2>/dev/null", "> /dev/null", " > /dev/console"}) {
        if (line.ends_with(redirection))
            line.resize(line.size() - redirection.size());
    }
    wordexp_t expanded{};
    if (wordexp(line.c_str(), &expanded, WRDE_NOCMD | WRDE_UNDEF) != 0) {
        const std::size_t at = line.find(" (null)");
        return at == std::string::npos ? std::nullopt : shell_words(line.replace(at, 7, " null"));
    }
    std::vector<std::string> words(expanded.we_wordv, expanded.we_wordv + expanded.we_wordc);
    wordfree(&expanded);
    std::erase(words, "");
    return words;
}

// Whether a word of a command line is plain, one of the program's own, or of `foreign`, perhaps
// behind a directory or a delay.
inline bool is_accounted_for(std::string_view word, const std::vector<std::string> &foreign) {
    static const std::vector<std::string> OWN{"submit STUNNEL", "submit CONSOLE"};
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
    const auto words = shell_words(line);
    if (!words || words->empty() || words->front().find('=') != std::string::npos)
        return "not one simple command: " + line;
    const bool accounted = std::all_of(words->begin(), words->end(), [&](const std::string &word) {
        return is_accounted_for(word, foreign);
    });
    return accounted ? "" : "a word of nobody's: " + line;
}
