// What must hold for every row of the program's tables.
#include "table_walk.h"
#include "typed_line.h"

#include "shell/dispatch.h"

#include <cctype>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace {

// The row that the words of a path lead to, found as the dispatcher finds it.
const CliCommand *find_row(const std::string &path) {
    TypedLine typed("");
    CliCommand *table = root_table();
    const CliCommand *row = nullptr;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find(' ', at), path.size());
        std::string word = path.substr(at, end - at);
        for (char &c : word)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        at = end + 1;
        const CommandMatch match = match_command(typed.cli(), table, word);
        if (!match.exact || match.row == nullptr)
            return nullptr;
        row = match.row;
        table = row->subtable;
    }
    return row;
}

TEST(Tables, EveryRowIsReachedByItsWords) {
    const DebugUnlocked unlocked;
    walk_tables([](const CliCommand &row, const std::string &path) {
        EXPECT_EQ(find_row(path), &row) << path;
        EXPECT_EQ(row.subtable != nullptr, row.handler == dispatch_subtable) << path;
    });
}

TEST(Tables, WordsCanBeTypedAndLinesFitTheListing) {
    walk_tables([](const CliCommand &row, const std::string &path) {
        for (const char *at = row.name; *at != '\0'; ++at)
            EXPECT_TRUE(*at > ' ' && *at <= '~') << path;
        EXPECT_LT(path.size(), 100U);
        if (row.tag != nullptr) {
            EXPECT_TRUE(std::string(row.tag) == HIDDEN_TAG || std::string(row.tag) == DEBUG_TAG);
        }
    });
}

TEST(Tables, EveryRowHasHelpButTheFamiliesOfTheRoot) {
    const std::set<std::string> without{"del", "get", "set", "clear", "test", "mfc"};
    walk_tables([&without](const CliCommand &row, const std::string &path) {
        const bool has_help = row.help != nullptr && *row.help != '\0';
        EXPECT_EQ(has_help, !without.contains(path)) << path;
        if (has_help) {
            EXPECT_EQ(std::string(row.help).find('\n'), std::string::npos) << path;
        }
    });
}

TEST(Tables, EveryTableEndsAndHangsInOnePlace) {
    std::set<const CliCommand *> tables;
    walk_tables([&tables](const CliCommand &row, const std::string &path) {
        if (row.subtable == nullptr)
            return;
        EXPECT_TRUE(tables.insert(row.subtable).second) << path;
        const CliCommand *end = row.subtable;
        while (end->handler != nullptr)
            ++end;
        EXPECT_STREQ(end->name, "") << path;
    });
}

TEST(Tables, RootStandsInItsOrder) {
    const std::vector<std::string> expected{"?",   "orvik",  "del",  "exit", "shell",
                                            "ftp", "tftp",   "get",  "help", "isfactorydefault",
                                            "ls",  "mem",    "ping", "pwd",  "reboot",
                                            "set", "clear",  "test", "snmp", "ssl",
                                            "mfc", "version"};
    std::vector<std::string> names;
    for (const CliCommand *row = root_table(); row->handler != nullptr; ++row)
        names.emplace_back(row->name);
    EXPECT_EQ(names, expected);
    // What a bare "s" means hangs on the order.
    TypedLine typed("");
    EXPECT_STREQ(match_command(typed.cli(), root_table(), "s").row->name, "set");
    const DebugUnlocked unlocked;
    EXPECT_STREQ(match_command(typed.cli(), root_table(), "s").row->name, "shell");
}

} // namespace
