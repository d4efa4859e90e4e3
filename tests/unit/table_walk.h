// Every row of the program's tables, with the words that lead to it.
#pragma once

#include "shell/command.h"
#include "tables/root.h"

#include <set>
#include <string>

// Calls visit(row, path) for every row of `table` and below, in order; a path is the row's words
// with blanks between them.
template <class Visit>
void walk_table(CliCommand *table, const std::string &parent, Visit visit) {
    for (CliCommand *row = table; row->handler != nullptr; ++row) {
        const std::string path = parent.empty() ? row->name : parent + ' ' + row->name;
        visit(*row, path);
        if (row->subtable != nullptr)
            walk_table(row->subtable, path, visit);
    }
}

template <class Visit>
void walk_tables(Visit visit) {
    walk_table(root_table(), "", visit);
}

// The same for the commands, which end the paths, but for those that end the process, touch a file
// of the host, or go round as often as they are told.
template <class Visit>
void walk_commands(Visit visit) {
    static const std::set<std::string> APART{"exit", "isfactorydefault", "set wlantest"};
    walk_tables([&visit](const CliCommand &row, const std::string &path) {
        if (row.subtable == nullptr && !APART.contains(path))
            visit(row, path);
    });
}
