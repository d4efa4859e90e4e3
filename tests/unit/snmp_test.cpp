// What a console session cannot bring about: databases that refuse, files of any length.
#include "recording_shell.h"
#include "test_daemon.h"
#include "typed_line.h"

#include "commands/snmp_usm.h"
#include "config/unique_fd.h"

#include <fstream>
#include <gtest/gtest.h>

namespace {

TEST(Snmp, ReadsEngineIdBehindItsOffset) {
    const std::string file = testing::TempDir() + "engine_id_test";
    const auto read = [&file](const std::string &content) {
        std::ofstream(file) << content;
        ValueBuffer text(ENGINE_ID_LIMIT);
        return std::string(read_engine_id(file.c_str(), text));
    };
    const std::string before = std::string(609, 'x') + "EngineID ";
    EXPECT_EQ(read(before + "a EngineID b\nc"), "EngineID b\nc");
    EXPECT_EQ(read(std::string(617, 'x') + "EngineID"), "");
    EXPECT_EQ(read(before + std::string(1, '\0') + "EngineID"), "");
    EXPECT_EQ(read("EngineID"), "");
    EXPECT_EQ(read(before + "EngineID" + std::string(5000, 'y')).size(), ENGINE_ID_LIMIT);
    unlink(file.c_str());
    ValueBuffer text(ENGINE_ID_LIMIT);
    EXPECT_EQ(read_engine_id(file.c_str(), text), nullptr);
}

TEST(Snmp, DeletesAViewOnlySoOftenWhenTheDatabaseRefuses) {
    TestDaemon daemon;
    const RecordingShell shell;
    daemon.put("/sys/snmpd/viewname:1", "all");
    daemon.behave(TestDaemon::Manner::Refusal);
    const CommandRun run = type_line("snmp delview all");
    EXPECT_EQ(run.out, "\nView has been deleted successfully\n");
    EXPECT_EQ(daemon.take_writes().size(), 30U * 3);
}

TEST(Snmp, KeepsOneConnectionHoweverManyRowsWereDeleted) {
    TestDaemon daemon;
    const RecordingShell shell;
    const auto delete_one = [&daemon] {
        daemon.put("/sys/snmpd/secuname:1", "u");
        EXPECT_EQ(type_line("snmp deluser u").result, CLI_DONE);
    };
    const auto next_descriptor = [] { return UniqueFd(dup(STDOUT_FILENO)).get(); };
    delete_one();
    const int before = next_descriptor();
    for (int times = 0; times < 50; ++times)
        delete_one();
    // The daemon's own ends, which it closes when it comes to it, are among the descriptors.
    EXPECT_LT(next_descriptor(), before + 25);
}

} // namespace
