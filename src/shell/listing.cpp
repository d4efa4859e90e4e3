#include "shell/listing.h"

#include "shell/args.h"
#include "shell/output.h"
#include "shell/row_visibility.h"

#include <cstdio>
#include <cstring>

bool list_first_row_only = false;

namespace {

// Far above the longest path of names in the tables.
constexpr int PATH_SIZE = 256;

bool passes(const CliCommand &row, const char *filter) {
    return filter == nullptr || std::strncmp(row.name, filter, std::strlen(filter)) == 0;
}

void list_row(CliContext &cli, const CliCommand &row, const char *prefix, const char *filter,
              int level) {
    WAP_NOT_CLEARED char path[PATH_SIZE];
    if (std::snprintf(path, sizeof path, "%s %s", prefix, row.name) >= PATH_SIZE)
        return;
    if (level == LIST_ROWS || row.subtable == nullptr) {
        if (row.help != nullptr && passes(row, filter))
            cli_printf("%-35s -- %s\n", path, row.help);
    } else if (level == LIST_FAMILY) {
        if (passes(row, filter))
            cli_list(cli, row.subtable, path, nullptr, LIST_ROWS);
    } else if (level >= LIST_TREE) {
        cli_list(cli, row.subtable, path, filter, level);
    }
}

} // namespace

int cli_list(CliContext &cli, const CliCommand *table, const char *prefix, const char *filter,
             int level) {
    const bool first_row_only = list_first_row_only;
    list_first_row_only = false;
    if (table == nullptr)
        return CLI_DONE;
    for (const CliCommand *row = table; row->handler != nullptr; ++row) {
        if (is_listed(cli, *row))
            list_row(cli, *row, prefix, filter, level);
        if (first_row_only)
            break;
    }
    return CLI_DONE;
}

int show_help(CliContext &cli, const char *, CliCommand *) {
    cli_printf("List of Access Point CLI commands:\n");
    const bool whole_tree = arg_next(cli) != nullptr;
    // The root table is at the bottom of the stack during every line.
    return cli_list(cli, cli.table_stack[0], "", nullptr, whole_tree ? LIST_TREE : LIST_FAMILY);
}
