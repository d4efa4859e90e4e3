// Every command, as its examples type it: without its database, without memory, and on the radio
// that no word of the console selects.
#include "examples.h"
#include "failing_allocation.h"
#include "recording_shell.h"
#include "test_daemon.h"
#include "typed_line.h"

#include "config/apply.h"

#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <regex>

namespace {

using Manner = TestDaemon::Manner;

// A path of the first radio as it is on the second.
std::string on_second_radio(std::string request) {
    const std::size_t at = request.find("lan/inf:1/");
    return at == std::string::npos ? request : request.replace(at, 9, "lan/inf:2");
}

// Where a request goes, without the numbers of lists.
std::string kind_of(const std::string &request) {
    static const std::regex NUMBERS(":[0-9]+|#");
    return std::regex_replace(NodeTree::canonical(split_words(request)[1]), NUMBERS, "");
}

class EveryCommand : public testing::Test {
protected:
    // Types a line on a device that has just started, behind others; returns the requests of its
    // own, and what it writes through the database's tool behind them.
    Lines requests_of(const std::string &line, const Lines &before, int band = 0,
                      std::size_t dropped = 0) {
        debug_locked = 0; // each time: `orvik` is among the commands
        daemon_.load(settings_);
        for (const std::string &each : before) {
            const std::size_t equals = each.find(" =");
            if (each.starts_with('/') && equals != std::string::npos)
                put_on_both_radios(each.substr(0, equals),
                                   each.substr(std::min(equals + 3, each.size())));
            else
                type_line(each, band);
        }
        pending_apply = 0;
        shell_.take_lines();
        daemon_.take_requests();
        if (dropped > 0)
            daemon_.drop(dropped);
        const std::size_t connections_before = daemon_.connections();
        run_ = type_line(line, band);
        connections_ = daemon_.connections() - connections_before;
        Lines requests = daemon_.take_requests();
        for (const std::string &command : shell_.take_lines()) {
            if (command.starts_with("rgdb -s"))
                requests.push_back(command);
        }
        return requests;
    }

    void put_on_both_radios(const std::string &path, const std::string &value) {
        daemon_.put(path, value);
        daemon_.put(on_second_radio(path), value);
    }

    NodeTree settings_ = first_start();
    TestDaemon daemon_;
    RecordingShell shell_;
    DebugUnlocked unlocked_;
    CommandRun run_{};
    std::size_t connections_ = 0;
};

TEST_F(EveryCommand, LeavesTheConsoleAsItWasWhenTheDatabaseTalksNonsense) {
    walk_examples([this](const std::string &, const std::string &line, const Lines &) {
        for (const Manner manner : {Manner::Garbage, Manner::ShortReply}) {
            daemon_.behave(manner);
            const int result = type_line(line).result;
            EXPECT_TRUE(result != CLI_UNKNOWN && result != CLI_BAD_PARAMETER) << line;
        }
        daemon_.behave(Manner::Proper);
        daemon_.put("/wlan/inf:1/ssid", "Office");
        EXPECT_EQ(type_line("get ssid").out, "SSID:Office\n") << "after " << line;
        debug_locked = 0;
    });
}

// Which settings the array keeps in step is asked before each write, and changes none.
bool is_flag(const Lines &requests, std::size_t at) {
    return at < requests.size() && requests[at].starts_with("get /aparray/sync/");
}

// With any of its requests dropped, a command writes nothing else; and nothing at all, but ends as
// a refusal, after a failed read.
TEST_F(EveryCommand, WritesNothingElseWhenARequestIsDropped) {
    int writing = 0;
    walk_examples([&](const std::string &, const std::string &line, const Lines &before) {
        const Lines proper = requests_of(line, before);
        const bool writes = !std::ranges::all_of(proper, is_read);
        writing += writes ? 1 : 0;
        const std::size_t connections = connections_;
        std::map<std::string, int> tried; // of a list, the first two rows
        for (std::size_t number = 1; number <= connections; ++number) {
            if (is_flag(proper, number - 1) && is_flag(proper, number - 2))
                continue;
            if (number <= proper.size() && ++tried[kind_of(proper[number - 1])] > 2)
                continue;
            Lines written = requests_of(line, before, 0, number);
            const auto dropped = std::ranges::mismatch(proper, written).in1;
            // A connection that deletes SNMP rows carries nothing itself.
            if (dropped == proper.end() || is_flag(proper, number - 1))
                continue;
            SCOPED_TRACE(line + " without " + *dropped);
            std::erase_if(written, is_read);
            // One makes no use of what it reads, one says so and takes the band for 2.4 GHz, one
            // counts on from 0.
            const bool stops = writes && is_read(*dropped) && !line.starts_with("set cwm auto") &&
                               !line.starts_with("set channel ") && !line.starts_with("set apply");
            const auto end = stops ? dropped : proper.end();
            for (const std::string &write : written)
                EXPECT_TRUE(std::find(proper.begin(), end, write) != end ||
                            line.starts_with("set apply"))
                    << write;
            EXPECT_TRUE(run_.result == CLI_REFUSED || !stops);
        }
    });
    EXPECT_GT(writing, 250);
}

// Either those of the selected one or, in some commands, always the first one's.
TEST_F(EveryCommand, HasTheNodesOfOneRadio) {
    const NodeTree first_start = settings_;
    for (const auto &[path, value] : first_start.nodes()) {
        if (on_second_radio(path) != path)
            settings_.set(on_second_radio(path), value);
    }
    std::string always_first;
    std::string mixed;
    walk_examples([&](const std::string &path, const std::string &line, const Lines &before) {
        Lines first = requests_of(line, before);
        const Lines second = requests_of(line, before, 1);
        const std::string command = path.substr(0, path.find(' ', 4));
        std::string &list = first == second ? always_first : mixed;
        std::ranges::transform(first, first.begin(), on_second_radio);
        if (first != second && !list.ends_with(command + ", "))
            list += command + ", ";
    });
    EXPECT_EQ(always_first,
              "del key, get wlmode, get dfstest, get availablechannel, get acl-table, "
              "get keyentrymethod, get wdsscaninfo, get aparray-state, get arrayname, "
              "get arrayrole, get arraypassword, get arraycfg, get arraytable, get macclonetype, "
              "get maccloneaddr, set apply, set wlmode, set band, set dfstest, set channel, "
              "set mcastrate, set rogue_set_type_mac, set cipher, set key, set keylength, "
              "set keyentrymethod, "
              "set defkeyindex, set syslog, set aparray-state, set arrayname, set arraypassword, "
              "set arrayrole, set autorekey, set autosetpvid, set macclonetype, "
              "set maccloneaddr, ");
    // See SecondRadio.
    EXPECT_EQ(
        mixed,
        "get acktimeout, get acl-table, get autorekey, get groupvid_primary, get multi-groupvid, "
        "get wds-groupvid, set apmode, set authentication, set cipher, set wdsmacadd, "
        "set fixedrate, set groupvid_primary, set multi-groupvid, set wds-groupvid, ");
}

// The device has what is read from its start, or a command writes it.
TEST_F(EveryCommand, ReadsNodesThatThereAre) {
    std::set<std::string> known;
    std::set<std::string> read;
    for (const auto &[path, value] : settings_.nodes())
        known.insert(kind_of("get " + path));
    walk_examples([&](const std::string &, const std::string &line, const Lines &before) {
        for (const std::string &request : requests_of(line, before))
            (is_read(request) ? read : known).insert(kind_of(request));
    });
    Lines unknown;
    std::ranges::set_difference(read, known, std::back_inserter(unknown));
    EXPECT_EQ(unknown, Lines{});
}

bool is_memory_message(const std::string &text) {
    static constexpr const char *MESSAGES[] = {"memory error!", " can't alloc memory",
                                               "no enough memory!",
                                               "Error: fail to allocate memery"};
    return std::ranges::any_of(
        MESSAGES, [&text](const char *message) { return text.find(message) != std::string::npos; });
}

TEST_F(EveryCommand, SaysSoAndDoesNothingWithoutMemory) {
    std::set<std::string> starved;
    walk_examples([&](const std::string &path, const std::string &line, const Lines &before) {
        requests_of("version", before);
        for (int nth = 1;; ++nth) {
            debug_locked = 0;
            daemon_.take_requests();
            shell_.take_lines();
            const FailingAllocation failing(nth);
            const std::string out = type_line(line).out;
            if (!failing.has_failed())
                break;
            starved.insert(path);
            SCOPED_TRACE(line + ", allocation " + std::to_string(nth));
            EXPECT_TRUE(is_memory_message(out)) << out;
            // These take a check that has no memory for a refusal, say so, and go on to mend the
            // combination.
            if (line.starts_with("set apmode ") || line.starts_with("set authentication "))
                continue;
            EXPECT_EQ(daemon_.take_writes(), Lines{});
            EXPECT_EQ(shell_.take_lines(), Lines{});
        }
    });
    EXPECT_GT(starved.size(), 100U) << "words are missing that reach the allocations";
}

// It touches a file of the host once it has memory.
TEST_F(EveryCommand, ComparesNoFactorySettingsWithoutMemory) {
    const FailingAllocation failing(1);
    EXPECT_EQ(type_line("isfactorydefault").out, "memory error!\n");
    EXPECT_EQ(daemon_.take_requests(), Lines{});
    EXPECT_EQ(shell_.take_lines(), Lines{});
}

} // namespace
