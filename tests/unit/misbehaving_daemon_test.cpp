// Every command against a daemon that answers nonsense; the sanitizers look on.
#include "fake_daemon.h"
#include "recording_shell.h"
#include "table_walk.h"
#include "typed_line.h"

#include <gtest/gtest.h>
#include <set>

namespace {

TEST(MisbehavingDaemon, LeavesTheConsoleAsItWas) {
    FakeDaemon daemon;
    RecordingShell shell;
    int commands = 0;
    walk_tables([&](const CliCommand &row, const std::string &path) {
        // These end the process, and touch a file of the host.
        static const std::set<std::string> APART{"exit", "isfactorydefault"};
        if (row.subtable != nullptr || APART.contains(path))
            return;
        const DebugUnlocked unlocked; // each time: `orvik` is among the commands
        for (const FakeDaemon::Manner manner :
             {FakeDaemon::Manner::Garbage, FakeDaemon::Manner::ShortReply}) {
            daemon.behave(manner);
            const CommandRun run = dispatch_line(root_table(), path + " 1");
            EXPECT_NE(run.result, CLI_UNKNOWN) << path;
            EXPECT_NE(run.result, CLI_BAD_PARAMETER) << path;
        }
        daemon.behave(FakeDaemon::Manner::Proper);
        daemon.put("/wlan/inf:1/ssid", "Office");
        EXPECT_EQ(dispatch_line(root_table(), "get ssid").out, "SSID:Office\n") << "after " << path;
        ++commands;
    });
    EXPECT_GT(commands, 500);
}

} // namespace
