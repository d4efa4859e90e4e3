#include "syntax.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iostream>
#include <optional>

namespace {

std::string_view trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<long> number_of(std::string_view text) {
    long number = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

// The parts between bars with a blank before them; a bar without one separates words to
// choose from.
std::vector<std::string> split_columns(std::string_view line) {
    std::vector<std::string> columns;
    for (;;) {
        const std::size_t bar = line.find(" |");
        columns.emplace_back(trim(line.substr(0, bar)));
        if (bar == std::string_view::npos)
            return columns;
        line.remove_prefix(bar + 2);
    }
}

std::string letters(long count) {
    std::string text;
    for (long at = 0; at < count; ++at)
        text += static_cast<char>('a' + at % 26);
    return text;
}

} // namespace

std::vector<std::string> split_words(std::string_view text, char separator) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (const std::string_view word = trim(text.substr(0, end)); !word.empty())
            words.emplace_back(word);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

std::string join_words(const std::vector<std::string> &words, std::string_view separator) {
    std::string all;
    for (const std::string &word : words)
        all.append(all.empty() ? "" : separator).append(word);
    return all;
}

std::vector<SyntaxLine> read_syntax_lines(const std::string &file) {
    std::vector<SyntaxLine> lines;
    std::ifstream stream(file);
    int number = 0;
    const std::vector<std::string> none;
    for (std::string text; std::getline(stream, text);) {
        ++number;
        if (text.empty() || text[0] == '#')
            continue;
        for (std::string more; stream.peek() == ' ' && std::getline(stream, more); ++number)
            text += more;
        const std::vector<std::string> columns = split_columns(text);
        if (columns.size() < 2) {
            std::cerr << file << ':' << number << ": no example\n";
            return {};
        }
        lines.push_back({.number = number,
                         .syntax = columns[0],
                         .example = columns[1],
                         .before = columns.size() > 2 ? split_words(columns[2], ';') : none,
                         .others = columns.size() > 3 ? split_words(columns[3], ';') : none});
    }
    if (lines.empty())
        std::cerr << file << ": no line of it could be read\n";
    return lines;
}

WordSyntax::WordSyntax(std::string_view text) {
    if (text.starts_with('[') && text.ends_with(']')) {
        optional_ = true;
        text = text.substr(1, text.size() - 2);
    }
    if (!text.starts_with('<')) {
        literals_ = split_words(text, '|');
        taken_ = literals_;
        return;
    }
    text = text.substr(1, text.size() - 2);
    const auto *const kind = std::ranges::find(WORD_KINDS, text, &WordKind::name);
    if (kind != std::end(WORD_KINDS))
        text = kind->numbers;
    if (const std::size_t colon = text.find(':'); colon != std::string_view::npos)
        add_lengths(text.substr(colon + 1));
    else if (!text.empty() && text[0] >= '0' && text[0] <= '9')
        add_numbers(text);
    else
        is_limited_ = kind != std::end(WORD_KINDS);
}

void WordSyntax::add_numbers(std::string_view numbers) {
    for (const std::string &part : split_words(numbers, '|')) {
        const std::vector<std::string> ends = split_words(part, '-');
        numbers_.push_back({number_of(ends.front()).value(), number_of(ends.back()).value()});
    }
    const auto is_taken = [&](long number) {
        return std::ranges::any_of(numbers_, [number](const Range &range) {
            return range.low <= number && number <= range.high;
        });
    };
    for (const Range &range : numbers_) {
        for (const long number : {range.low, range.high})
            taken_.push_back(std::to_string(number));
        for (const long number : {range.low - 1, range.high + 1}) {
            if (!is_taken(number))
                refused_.push_back(std::to_string(number));
        }
    }
}

void WordSyntax::add_lengths(std::string_view range) {
    const std::vector<std::string> ends = split_words(range, '-');
    const Range lengths{number_of(ends.front()).value(), number_of(ends.back()).value()};
    lengths_.push_back(lengths);
    taken_ = {letters(lengths.low), letters(lengths.high)};
    refused_ = {letters(lengths.high + 1)};
    if (lengths.low > 1)
        refused_.push_back(letters(lengths.low - 1));
}

bool WordSyntax::fits(std::string_view word) const {
    const auto in_one_of = [](const std::vector<Range> &ranges, long value) {
        return ranges.empty() || std::ranges::any_of(ranges, [value](const Range &range) {
                   return range.low <= value && value <= range.high;
               });
    };
    if (!literals_.empty())
        return std::ranges::find(literals_, word) != literals_.end();
    return in_one_of(lengths_, static_cast<long>(word.size())) &&
           (numbers_.empty() || (number_of(word) && in_one_of(numbers_, *number_of(word))));
}
