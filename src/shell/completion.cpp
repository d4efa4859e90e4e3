#include "shell/completion.h"

#include "shell/args.h"
#include "shell/dispatch.h"
#include "shell/listing.h"
#include "shell/output.h"
#include "shell/row_visibility.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

// The completed line as it grows.
class Completed {
public:
    explicit Completed(char (&text)[LINE_BUFFER_SIZE]) : text_(text) { text_[0] = '\0'; }

    void add_word(const char *word) { add({word, std::strlen(word)}, " "); }
    void add_part(std::string_view part) { add(part, ""); }
    [[nodiscard]] const char *text() const { return text_; }

private:
    void add(std::string_view part, const char *end) {
        const int written = std::snprintf(text_ + length_, LINE_BUFFER_SIZE - length_, "%.*s%s",
                                          static_cast<int>(part.size()), part.data(), end);
        length_ = std::min(length_ + static_cast<std::size_t>(written), LINE_BUFFER_SIZE - 1);
    }

    char *text_;
    std::size_t length_ = 0;
};

// The rows that an incomplete word may become: those with the longest match. The dispatcher has
// measured the matches, without hidden and locked rows.
class Candidates {
public:
    Candidates(const CliCommand *table, std::string_view word) : table_(table), word_(word) {
        for (const CliCommand *row = table; row->handler != nullptr; ++row)
            longest_ = std::max(longest_, row->match_length);
    }

    [[nodiscard]] bool has(const CliCommand &row) const {
        return row.match_length == longest_ && name_begins_with(row, word_);
    }

    [[nodiscard]] int count() const {
        int rows = 0;
        for_each([&rows](const CliCommand &) { ++rows; });
        return rows;
    }

    // The beginning that all their names share, in the first one's spelling.
    [[nodiscard]] std::string_view common_part() const {
        std::string_view part;
        for_each([&part](const CliCommand &row) {
            if (part.empty())
                part = row.name;
            while (!name_begins_with(row, part))
                part.remove_suffix(1);
        });
        return part;
    }

    template <class Visit>
    void for_each(Visit visit) const {
        for (const CliCommand *row = table_; row->handler != nullptr; ++row) {
            if (has(*row))
                visit(*row);
        }
    }

private:
    const CliCommand *table_;
    std::string_view word_;
    std::int32_t longest_ = 1;
};

// Prints one line: the row as listings show it, or its bare name when it has no help.
void list_candidate(CliContext &cli, const CliCommand &row, const char *prefix) {
    if (row.help == nullptr) {
        cli_printf("%s %s\n", prefix, row.name);
        return;
    }
    list_first_row_only = true;
    cli_list(cli, &row, prefix, nullptr, LIST_ROWS);
}

// Walks down the tables, one word of the ring at a time.
class CompletionWalker {
public:
    CompletionWalker(CliContext &cli, CliCommand *root, Completed &completed)
        : cli_(cli), table_(root), completed_(completed) {}

    // Follows a word that is not the last. False when it names no visible row with a subtable.
    bool descend(const char *typed) {
        const CommandMatch match = match_command(cli_, table_, prepare_word(cli_, typed));
        if (match.row == nullptr || !is_listed(cli_, *match.row) || match.row->subtable == nullptr)
            return false;
        completed_.add_word(match.row->name);
        table_ = match.row->subtable;
        return true;
    }

    // Completes the word at the cursor. False when no row fits.
    bool complete_last(const char *typed) {
        const std::string_view word = prepare_word(cli_, typed);
        const CommandMatch match = match_command(cli_, table_, word);
        if (match.exact) {
            if (match.row == nullptr || !is_listed(cli_, *match.row))
                return false;
            completed_.add_word(match.row->name);
            return true;
        }
        const Candidates candidates(table_, word);
        const int count = candidates.count();
        if (count == 0)
            return false;
        if (count == 1)
            candidates.for_each([this](const CliCommand &row) { completed_.add_word(row.name); });
        else
            complete_common_part(candidates);
        return true;
    }

    // Shows what may come next.
    void list_table() {
        char prefix[LINE_BUFFER_SIZE];
        copy_prefix(prefix);
        cli_list(cli_, table_, prefix, nullptr, LIST_FAMILY);
    }

private:
    void complete_common_part(const Candidates &candidates) {
        char prefix[LINE_BUFFER_SIZE];
        copy_prefix(prefix);
        candidates.for_each([&](const CliCommand &row) { list_candidate(cli_, row, prefix); });
        completed_.add_part(candidates.common_part());
    }

    // The path of names to the table as listings show it: without the blank that ends it.
    void copy_prefix(char (&prefix)[LINE_BUFFER_SIZE]) const {
        std::string_view path = completed_.text();
        if (!path.empty())
            path.remove_suffix(1);
        std::memcpy(prefix, path.data(), path.size());
        prefix[path.size()] = '\0';
    }

    CliContext &cli_;
    CliCommand *table_;
    Completed &completed_;
};

void empty_ring(CliContext &cli) {
    while (arg_next(cli) != nullptr) {
    }
    cli.ring_head = 0;
    cli.first_word = nullptr;
}

} // namespace

bool complete_line(CliContext &cli, CliCommand *root, std::string_view line,
                   char (&completed)[LINE_BUFFER_SIZE]) {
    char copy[LINE_BUFFER_SIZE];
    std::memcpy(copy, line.data(), line.size());
    copy[line.size()] = '\0';
    const bool ends_in_word = !line.empty() && line.back() != ' ';

    cli.word_count = split_line(cli, copy);
    Completed result(completed);
    CompletionWalker walker(cli, root, result);
    bool fits = cli.word_count <= CliContext::RING_SLOTS;
    for (int left = cli.word_count; fits && left > 0; --left) {
        const char *word = arg_next(cli);
        fits = left == 1 && ends_in_word ? walker.complete_last(word) : walker.descend(word);
    }
    if (fits && !ends_in_word)
        walker.list_table();
    empty_ring(cli);
    return fits;
}
