#include "session/transcript_text.h"

#include "session/console_session.h"
#include "session/journal_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <utility>

namespace session {

namespace {

constexpr std::string_view NO_NEWLINE = "\\c";
constexpr std::string_view PROTECTION = "\\&"; // takes no room; what follows is output
constexpr std::string_view JOURNAL_INDENT = "  ";

constexpr std::array<std::pair<char, char>, 8> KEY_ESCAPES{{{'r', '\r'},
                                                            {'n', '\n'},
                                                            {'t', '\t'},
                                                            {'e', '\x1b'},
                                                            {'a', '\a'},
                                                            {'b', '\b'},
                                                            {'f', '\f'},
                                                            {'v', '\v'}}};
constexpr std::size_t WRITTEN_KEY_ESCAPES = 4; // the others are only read

struct Keyword {
    LineKind kind;
    std::string_view text;
    bool takes_argument;
};

constexpr std::array KEYWORDS{
    Keyword{LineKind::COMMENT, "#", true},
    Keyword{LineKind::PIPED, "piped", false},
    Keyword{LineKind::BOOT, "boot ", true},
    Keyword{LineKind::GIVEN, "given ", true},
    Keyword{LineKind::STOP, "stop xmldb", false},
    Keyword{LineKind::COMMAND, "WAP->", false},
    Keyword{LineKind::COMMAND, "WAP-> ", true},
    Keyword{LineKind::CHILD_INPUT, "< ", true},
    Keyword{LineKind::KEYS, "keys ", true},
    Keyword{LineKind::PATTERN, "~ ", true},
    Keyword{LineKind::EXITED, "exited ", true},
    Keyword{LineKind::END_OF_INPUT, "end of input", false},
};

const Keyword *find_keyword(std::string_view line) {
    const auto *found =
        std::find_if(KEYWORDS.begin(), KEYWORDS.end(), [line](const Keyword &keyword) {
            return keyword.takes_argument ? line.starts_with(keyword.text) : line == keyword.text;
        });
    return found == KEYWORDS.end() ? nullptr : found;
}

std::string hex(unsigned byte) {
    char text[sizeof "\\x00"];
    std::snprintf(text, sizeof text, "\\x%02x", byte);
    return text;
}

std::string escape(std::string_view bytes, std::size_t key_escapes) {
    std::string text;
    for (const char byte : bytes) {
        const auto *end = KEY_ESCAPES.begin() + key_escapes;
        const auto *key = std::find_if(KEY_ESCAPES.begin(), end,
                                       [byte](const auto &pair) { return pair.second == byte; });
        if (key != end)
            (text += '\\') += key->first;
        else if (byte == '\\')
            text += "\\\\";
        else if (byte == '\t' || (byte >= ' ' && byte <= '~'))
            text += byte;
        else
            text += hex(static_cast<unsigned char>(byte));
    }
    return text;
}

// Takes one escape, without its backslash, off the front of `text`.
std::optional<char> take_escape(std::string_view &text) {
    if (text.empty())
        return std::nullopt;
    const char letter = text.front();
    text.remove_prefix(1);
    if (letter == '\\')
        return letter;
    if (letter == 'x' && text.size() >= 2) {
        unsigned char value = 0;
        const char *end = text.data() + 2;
        if (std::from_chars(text.data(), end, value, 16).ptr != end)
            return std::nullopt;
        text.remove_prefix(2);
        return static_cast<char>(value);
    }
    for (const auto &[name, byte] : KEY_ESCAPES) {
        if (name == letter)
            return byte;
    }
    return std::nullopt;
}

std::string output_line(std::string_view bytes, bool newline) {
    std::string line = escape(bytes, 0);
    if (!newline)
        line += NO_NEWLINE;
    if (!line.empty() && line_kind(line) != LineKind::OUTPUT)
        line.insert(0, PROTECTION);
    return line;
}

} // namespace

std::string escape_text(std::string_view bytes) {
    return escape(bytes, 0);
}

std::string escape_keys(std::string_view bytes) {
    return escape(bytes, WRITTEN_KEY_ESCAPES);
}

std::optional<std::string> unescape(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        const char byte = text.front();
        text.remove_prefix(1);
        if (byte != '\\') {
            bytes += byte;
            continue;
        }
        const std::optional<char> escaped = take_escape(text);
        if (!escaped)
            return std::nullopt;
        bytes += *escaped;
    }
    return bytes;
}

LineKind line_kind(std::string_view line) {
    if (line.empty())
        return LineKind::BLANK;
    if (const Keyword *keyword = find_keyword(line))
        return keyword->kind;
    if (line.starts_with(JOURNAL_INDENT) && is_console_action(line.substr(JOURNAL_INDENT.size())))
        return LineKind::JOURNAL;
    return LineKind::OUTPUT;
}

std::string_view line_argument(std::string_view line) {
    const Keyword *keyword = find_keyword(line);
    return keyword ? line.substr(keyword->text.size()) : line;
}

std::string keyword_line(LineKind kind, std::string_view argument) {
    const auto *const keyword = std::ranges::find_if(KEYWORDS, [&](const Keyword &each) {
        return each.kind == kind && (each.takes_argument || argument.empty());
    });
    return std::string(keyword->text).append(argument);
}

std::vector<std::string> output_lines(std::string_view printed) {
    std::vector<std::string> lines;
    while (!printed.empty()) {
        const std::size_t newline = printed.find('\n');
        const bool ends = newline != std::string_view::npos;
        lines.push_back(output_line(printed.substr(0, newline), ends));
        printed.remove_prefix(ends ? newline + 1 : printed.size());
    }
    return lines;
}

std::string journal_line(std::string_view line) {
    return std::string(JOURNAL_INDENT) + escape_text(line);
}

std::string exit_line(int status) {
    return keyword_line(LineKind::EXITED, std::to_string(status));
}

std::optional<std::string> normal_line(std::string_view line) {
    if (line_kind(line) == LineKind::JOURNAL) {
        const auto bytes = unescape(line.substr(JOURNAL_INDENT.size()));
        return bytes ? std::optional(journal_line(*bytes)) : std::nullopt;
    }
    if (line.starts_with(PROTECTION))
        line.remove_prefix(PROTECTION.size());
    if (const auto bytes = unescape(line))
        return output_line(*bytes, true);
    if (!line.ends_with(NO_NEWLINE))
        return std::nullopt;
    line.remove_suffix(NO_NEWLINE.size());
    const auto bytes = unescape(line);
    return bytes ? std::optional(output_line(*bytes, false)) : std::nullopt;
}

} // namespace session
