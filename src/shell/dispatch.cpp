#include "shell/dispatch.h"

#include "shell/args.h"
#include "shell/listing.h"
#include "shell/output.h"
#include "shell/row_visibility.h"

namespace {

char lower_ascii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The same for both cases of a letter.
char without_case(char c) {
    return static_cast<char>(c | ('a' - 'A'));
}

// Compares ignoring case. The word is lowered already, and names seldom have capitals.
bool equals_lowered(const char *name, std::string_view word) {
    for (const char c : word) {
        if (*name != c && lower_ascii(*name) != c)
            return false;
        ++name;
    }
    return *name == '\0';
}

std::int32_t common_prefix(const char *name, std::string_view word) {
    std::size_t length = 0;
    while (length < word.size() && name[length] == word[length])
        ++length;
    return static_cast<std::int32_t>(length);
}

CliCommand *find_exact(const CliContext &cli, CliCommand *table, std::string_view word) {
    const char first = word.empty() ? '\0' : without_case(word[0]);
    for (CliCommand *row = table; row->handler != nullptr; ++row) {
        // The cheapest test rules out nearly all rows.
        if (without_case(row->name[0]) != first)
            continue;
        // Tags are ignored here: a locked row named in full is an error, not a reason to try
        // prefixes.
        if (equals_lowered(row->name, word) && is_on_band(cli, *row))
            return row;
    }
    return nullptr;
}

// Sets the match length of every row, 0 where the word cannot be its prefix; returns how many
// candidates there are.
int measure_prefixes(const CliContext &cli, CliCommand *table, std::string_view word) {
    int candidates = 0;
    for (CliCommand *row = table; row->handler != nullptr; ++row) {
        row->match_length = 0;
        if (is_locked(*row) || is_hidden(*row) || !is_on_band(cli, *row))
            continue;
        // The lowered word is compared with the name as written, so a capital ends the match.
        // Deliberate.
        row->match_length = common_prefix(row->name, word);
        if (row->match_length > 0)
            ++candidates;
    }
    return candidates;
}

// The first row with the longest match; null when the word does not fit it.
CliCommand *take_longest(CliCommand *table, std::string_view word) {
    CliCommand *longest = table;
    for (CliCommand *row = table; row->handler != nullptr; ++row) {
        if (row->match_length > longest->match_length)
            longest = row;
    }
    const bool fits = longest->match_length > 0 && name_begins_with(*longest, word);
    return fits ? longest : nullptr;
}

CliCommand *innermost_table(const CliContext &cli) {
    return cli.table_stack[static_cast<std::size_t>(cli.depth - 1)];
}

int report_unknown(CliContext &cli) {
    cli_printf(cli.consumed_count < 2 ? "Unknown command: %s" : "Invalid parameter: %s",
               cli.word_buffer);
    while (const char *word = arg_next(cli))
        cli_printf(" %s", word);
    cli_printf("\n");
    // A root table whose first row begins with "#" has no help to point at.
    if (cli.depth != 1 || cli.table_stack[0]->name[0] != '#') {
        cli_printf(cli.consumed_count < 3 ? "Type \"help\" for a list of valid commands.\n"
                                          : "List of valid parameter(s):\n");
    }
    return cli.consumed_count < 3 ? CLI_UNKNOWN : CLI_BAD_PARAMETER;
}

// The result of a row that was the only match.
int finish_single(CliContext &cli, const CliCommand &row, int result) {
    switch (result) {
    case CLI_UNKNOWN:
        cli_list(cli, innermost_table(cli), row.name, cli.word_buffer, LIST_FAMILY);
        return CLI_REFUSED;
    case CLI_BAD_PARAMETER:
        cli_list(cli, innermost_table(cli), "", nullptr, LIST_FAMILY);
        return CLI_REFUSED;
    default:
        return result;
    }
}

} // namespace

bool name_begins_with(const CliCommand &row, std::string_view word) {
    for (std::size_t at = 0; at < word.size(); ++at) {
        if (row.name[at] == '\0' || lower_ascii(row.name[at]) != lower_ascii(word[at]))
            return false;
    }
    return true;
}

std::string_view prepare_word(CliContext &cli, const char *word) {
    std::size_t length = 0;
    while (word[length] != '\0' && length < CliContext::WORD_BUFFER_SIZE - 1) {
        cli.word_buffer[length] = lower_ascii(word[length]);
        ++length;
    }
    cli.word_buffer[length] = '\0';
    return {cli.word_buffer, length};
}

CommandMatch match_command(const CliContext &cli, CliCommand *table, std::string_view word) {
    if (CliCommand *row = find_exact(cli, table, word))
        return {.row = is_locked(*row) ? nullptr : row, .several = false, .exact = true};
    const bool several = measure_prefixes(cli, table, word) > 1;
    return {.row = take_longest(table, word), .several = several, .exact = false};
}

int cli_dispatch(CliContext &cli, CliCommand *table) {
    ++cli.consumed_count;
    // No shipped path of tables is nearly as deep as the stack.
    if (cli.depth == CliContext::TABLE_STACK_SLOTS)
        return CLI_REFUSED;
    cli.table_stack[static_cast<std::size_t>(cli.depth++)] = table;

    const char *typed = arg_next(cli);
    if (typed == nullptr)
        return CLI_DONE;
    const std::string_view word = prepare_word(cli, typed);
    const CommandMatch match = match_command(cli, table, word);
    if (match.row == nullptr)
        return report_unknown(cli);

    current_command = match.row;
    const int result = match.row->handler(cli, cli.word_buffer, match.row->subtable);
    if (result == CLI_LIST_SUBTABLE) {
        cli_list(cli, match.row->subtable, match.row->name, nullptr, LIST_FAMILY);
        return CLI_LISTED;
    }
    // An ambiguous prefix passes "not found" up without a listing. Deliberate.
    return match.several ? result : finish_single(cli, *match.row, result);
}

int dispatch_subtable(CliContext &cli, const char *, CliCommand *subtable) {
    if (subtable == nullptr)
        return 1;
    if (arg_count(cli) == 0)
        return CLI_LIST_SUBTABLE;
    return cli_dispatch(cli, subtable);
}
