#include "config/command_line.h"

#include <cstdio>
#include <cstring>

namespace {

bool is_harmless(const char *word) {
    static constexpr char HARMLESS[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                       "0123456789_@%+=:,./-";
    return *word != '\0' && word[std::strspn(word, HARMLESS)] == '\0';
}

} // namespace

CommandLine::CommandLine(const char *format, std::initializer_list<CommandValue> values) {
    const CommandValue *value = values.begin();
    for (const char *at = format; *at != '\0'; ++at) {
        if (*at != '%') {
            append(*at);
            continue;
        }
        ++at; // "d" or "s", checked when the format was compiled
        if (value->text == nullptr)
            append_number(value->number);
        else if (value->is_foreign && !is_harmless(value->text))
            append_quoted(value->text);
        else
            append(value->text);
        ++value;
    }
    text_[length_] = '\0';
}

void CommandLine::append(char c) {
    if (length_ < LIMIT)
        text_[length_++] = c;
}

void CommandLine::append(const char *text) {
    for (; *text != '\0'; ++text)
        append(*text);
}

void CommandLine::append_number(int number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%d", number);
    append(digits);
}

// Single quotes protect everything but themselves; those are escaped between two quoted parts.
void CommandLine::append_quoted(const char *word) {
    append('\'');
    for (; *word != '\0'; ++word) {
        if (*word == '\'')
            append("'\\''");
        else
            append(*word);
    }
    if (length_ == LIMIT)
        cut_in_quotes_ = true;
    append('\'');
}
