// Every command with every allocation failing in turn.
#include "failing_allocation.h"
#include "fake_daemon.h"
#include "recording_shell.h"
#include "table_walk.h"
#include "typed_line.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

// Words that get commands past their checks, up to where they allocate.
const char *const WORDS[] = {"",           "1",      "1 1",          "1 1 1",
                             "3 1",        "name",   "192.168.0.60", "00:11:22:33:44:55",
                             "abcdef0123", "enable", "a@b.c",        "name 1 1 1 1 1 1 1"};

bool is_memory_message(const std::string &text) {
    static constexpr const char *MESSAGES[] = {"memory error!", " can't alloc memory",
                                               "no enough memory!",
                                               "Error: fail to allocate memery"};
    return std::ranges::any_of(
        MESSAGES, [&text](const char *message) { return text.find(message) != std::string::npos; });
}

// These take a check that has no memory for a refusal, say so, and go on to mend the combination.
bool goes_on(const std::string &line) {
    return line.starts_with("set apmode ") || line.starts_with("set authentication ");
}

// Lets each allocation of a line fail in turn; returns how many there are.
int starve(const std::string &line, FakeDaemon &daemon, RecordingShell &shell) {
    for (int nth = 1;; ++nth) {
        const FailingAllocation failing(nth);
        const CommandRun run = dispatch_line(root_table(), line);
        const std::vector<std::string> writes = daemon.take_writes();
        const std::vector<std::string> lines = shell.take_lines();
        if (!failing.has_failed())
            return nth - 1;
        EXPECT_TRUE(is_memory_message(run.out))
            << line << ", allocation " << nth << ": " << run.out;
        if (goes_on(line))
            continue;
        EXPECT_TRUE(writes.empty()) << line << ", allocation " << nth << ": " << writes.front();
        EXPECT_TRUE(lines.empty()) << line << ", allocation " << nth << ": " << lines.front();
    }
}

TEST(OutOfMemory, EveryCommandSaysSoAndDoesNothing) {
    FakeDaemon daemon;
    RecordingShell shell;
    int starved = 0;
    walk_tables([&](const CliCommand &row, const std::string &path) {
        // These end the process, touch a file of the host, and go round as often as they are told.
        static const std::set<std::string> APART{"exit", "isfactorydefault", "set wlantest"};
        if (row.subtable != nullptr || APART.contains(path))
            return;
        const DebugUnlocked unlocked; // each time: `orvik` is among the commands
        int allocations = 0;
        for (const char *words : WORDS)
            allocations += starve(path + ' ' + words, daemon, shell);
        starved += allocations > 0 ? 1 : 0;
    });
    EXPECT_GT(starved, 100) << "words are missing that reach the allocations";
}

// Kept apart from the others for what it does to a file once it has memory.
TEST(OutOfMemory, FactoryComparisonDoesNotBegin) {
    FakeDaemon daemon;
    RecordingShell shell;
    const FailingAllocation failing(1);
    const CommandRun run = dispatch_line(root_table(), "isfactorydefault");
    EXPECT_EQ(run.out, "memory error!\n");
    EXPECT_TRUE(daemon.take_requests().empty());
    EXPECT_TRUE(shell.take_lines().empty());
}

} // namespace
