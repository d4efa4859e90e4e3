#include "shell_syntax.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr std::string_view NULL_WORD = "(null)";
constexpr std::string_view SPECIAL = ";&|()<`$*?[]{}~#!^\\\n\r\v\f";
constexpr std::string_view SPECIAL_IN_DOUBLE_QUOTES = "$`\\";

class Parser {
public:
    explicit Parser(std::string_view line) : left_(line) {}

    std::optional<SimpleCommand> parse() {
        while (is_plain_ && !left_.empty())
            take_char();
        end_word();
        if (!is_plain_ || target_wanted_ || command_.words.empty() ||
            command_.words.front().find('=') != std::string::npos)
            return std::nullopt;
        return command_;
    }

private:
    void take_char() {
        const char c = left_.front();
        if (!in_word_ && left_.starts_with(NULL_WORD)) {
            add(NULL_WORD);
            left_.remove_prefix(NULL_WORD.size());
            return;
        }
        left_.remove_prefix(1);
        if (c == ' ' || c == '\t')
            end_word();
        else if (c == '\'')
            add_quoted(c, "");
        else if (c == '"')
            add_quoted(c, SPECIAL_IN_DOUBLE_QUOTES);
        else if (c == '\\' && left_.starts_with('\''))
            add(left_.substr(0, 1)), left_.remove_prefix(1);
        else if (c == '>')
            begin_redirection();
        else if (SPECIAL.find(c) != std::string_view::npos)
            is_plain_ = false;
        else
            add({&c, 1});
    }

    void add(std::string_view part) {
        in_word_ = true;
        word_ += part;
    }

    void add_quoted(char quote, std::string_view special) {
        const std::size_t end = left_.find(quote);
        if (end == std::string_view::npos) {
            is_plain_ = false;
            return;
        }
        const std::string_view part = left_.substr(0, end);
        is_plain_ = is_plain_ && part.find_first_of(special) == std::string_view::npos;
        add(part);
        left_.remove_prefix(end + 1);
    }

    // A number right in front of it is that of the descriptor.
    void begin_redirection() {
        const bool has_descriptor = in_word_ && std::all_of(word_.begin(), word_.end(), isdigit);
        if (!has_descriptor)
            end_word();
        is_plain_ = is_plain_ && !target_wanted_;
        redirection_ = word_ + '>';
        word_.clear();
        in_word_ = false;
        target_wanted_ = true;
    }

    void end_word() {
        if (!in_word_)
            return;
        if (target_wanted_)
            command_.redirections.push_back(redirection_ + word_);
        else
            command_.words.push_back(word_);
        target_wanted_ = false;
        in_word_ = false;
        word_.clear();
    }

    std::string_view left_;
    SimpleCommand command_;
    std::string word_;
    std::string redirection_;
    bool in_word_ = false;
    bool target_wanted_ = false;
    bool is_plain_ = true;
};

} // namespace

std::optional<SimpleCommand> parse_simple_command(std::string_view line) {
    return Parser(line).parse();
}
