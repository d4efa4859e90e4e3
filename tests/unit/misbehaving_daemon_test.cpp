// Every command against a daemon that answers nonsense, with the sanitizers looking on, and every
// command that writes against one that drops a connection.
#include "fake_daemon.h"
#include "recording_shell.h"
#include "table_walk.h"
#include "typed_line.h"

#include "config/apply.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

using Lines = std::vector<std::string>;

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

// A device in use: a place taken in every list, and settings that a change must respect.
const FakeDaemon::Nodes DEVICE{
    {"/wlan/ch_mode", "0"},
    {"/wlan/inf:1/wlmode", "2"},
    {"/runtime/layout/countrycode", "392"},
    {"/runtime/stats/wlan/inf:1/channeltable/channel:1/channel", "1"},
    {"/wlan/inf:1/ap_mode", "3"},
    {"/wlan/inf:1/multi/state", "1"},
    {"/wlan/inf:1/authentication", "5"},
    {"/wlan/inf:1/wpa/wepmode", "3"},
    {"/wlan/inf:1/defkey", "1"},
    {"/wlan/inf:1/wepkey:1", "12345"},
    {"/wlan/inf:1/wepkey:1/keylength", "64"},
    {"/wlan/inf:1/wepkey:1/keyformat", "1"},
    {"/wlan/inf:1/wepkey:2/keylength", "128"},
    {"/wlan/inf:1/wepkey:2/keyformat", "2"},
    {"/wlan/inf:1/multi/index:1/wep_key_index", "1"},
    {"/wlan/inf:1/multi/index:1/auth", "3"},
    {"/wlan/inf:1/acl/mac:1", "00:00:00:00:00:01"},
    {"/wlan/inf:1/acl/mac:2", "00:11:22:33:44:55"},
    {"/wlan/inf:0/wds/list/index:1/mac", "00:11:22:33:44:55"},
    {"/wlan/inf:1/zonedefence_ip/ipaddr:1", "10.0.0.1"},
    {"/wlan/inf:1/zonedefence_ip/ipaddr:2", "10.0.0.9"},
    {"/runtime/wlan/inf:1/rogue_ap/client:1/mac", "00:00:00:00:00:02"},
    {"/runtime/wlan/inf:1/rogue_ap/client:1/ssid", "Neighbour"},
    {"/wlan/inf:1/rogue_ap/client:1/mac", "00:00:00:00:00:01"},
    {"/wlan/inf:1/rogue_ap/client:2/mac", "00:00:00:00:00:02"},
    {"/lan/dhcp/server/pool:1/staticdhcp/entry:1/hostname", "taken"},
    {"/lan/dhcp/server/pool:1/staticdhcp/entry:1/ip", "10.0.0.1"},
    {"/lan/dhcp/server/pool:1/staticdhcp/entry:1/mac", "00:00:00:00:00:01"},
    {"/arpspoofing/static/index:1/ip", "10.0.0.1"},
    {"/sys/vlan_state", "1"},
    {"/sys/group_vlan/index#", "2"},
    {"/sys/group_vlan/index:1/group_vid", "1"},
    {"/sys/group_vlan/index:1/ath:1/egress", "2"},
    {"/sys/group_vlan/index:2/group_vid", "20"},
    {"/sys/group_vlan/index:2/sys:1/egress", "2"},
    {"/sys/adminlimit/status", "3"},
    {"/sys/adminlimit/ipentry/index:2/ippoolstart", "10.0.0.1"},
    {"/sys/log/smtpindex", "2"},
    {"/sys/snmpd/rocomm", "public"},
    {"/sys/snmpd/secuname:1", "user"},
    {"/sys/snmpd/groupname:1", "group"},
    {"/sys/snmpd/seculevel:1", "2"},
    {"/sys/snmpd/viewname:1", "view"},
    {"/sys/snmpd/viewname:2", "view"},
    {"/sys/snmpd/hostip:1", "10.0.0.1"},
    {"/sys/snmpd/community:1", "community"},
};

// Words for the commands that write; each gets the first ones that it writes for.
constexpr const char *WORDS[] = {
    "",
    "1",
    "2",
    "300",
    "50",
    "10.0.0.1",
    "10.0.0.7",
    "255.255.255.0",
    "00:11:22:33:44:55",
    "00:11:22:33:44:66",
    "00:11:22:33:44:55 1",
    "00:11:22:33:44:66 1",
    "10.0.0.7 00:11:22:33:44:66",
    "1 0 0",
    "1 1 00:11:22:33:44:66",
    "abcdefgh",
    "enable",
    "auto",
    "1 abcde",
    "1 1",
    "300 1",
    "abcdefgh 1",
    "remote 1",
    "1 name x",
    "1 1 0 s f t u p 25",
    "user",
    "group",
    "view",
    "community",
    "u group 2 abcdefgh 1 xy",
    "g 1 view view view",
    "v .1 1",
    "10.0.0.7 1 0 public",
    "c view 1",
};

bool is_read(const std::string &request) {
    return request.starts_with("get ");
}

class DroppedConnection : public testing::Test {
protected:
    // The requests of a command, and what it writes through the database's tool behind them.
    Lines requests_of(const std::string &line) {
        daemon_.load(DEVICE);
        pending_apply = 0;
        result_ = dispatch_line(root_table(), line).result;
        Lines requests = daemon_.take_requests();
        for (const std::string &command : shell_.take_lines()) {
            if (command.starts_with("rgdb -s"))
                requests.push_back(command);
        }
        return requests;
    }

    // True when the command writes. With any of its connections dropped, it writes nothing else;
    // and nothing at all, but ends as a refusal, after a failed read.
    bool minds_dropped_connections(const std::string &line) {
        const int before = daemon_.connections();
        const Lines proper = requests_of(line);
        const int connections = daemon_.connections() - before;
        // `snmp delview` opens a connection first that carries nothing.
        const int mute = std::max(0, connections - static_cast<int>(proper.size()));
        for (int number = mute + 1; number <= connections; ++number) {
            const auto dropped = proper.begin() + (number - mute - 1);
            // Which settings the array keeps in step is asked before each write, and changes none.
            if (dropped->starts_with("get /aparray/sync/"))
                continue;
            SCOPED_TRACE(line + " without " + *dropped);
            daemon_.drop(number);
            Lines writes = requests_of(line);
            std::erase_if(writes, is_read);
            // One makes no use of what it reads; one says so and takes the band for 2.4 GHz.
            const bool stops = is_read(*dropped) && !line.starts_with("set cwm auto ") &&
                               !line.starts_with("set channel ");
            const auto end = stops ? dropped : proper.end();
            for (const std::string &write : writes)
                EXPECT_NE(std::find(proper.begin(), end, write), end) << write;
            EXPECT_TRUE(result_ == CLI_REFUSED || !stops);
        }
        return !std::all_of(proper.begin(), proper.end(), is_read);
    }

    FakeDaemon daemon_;
    RecordingShell shell_;
    DebugUnlocked unlocked_;
    int result_ = CLI_DONE;
};

TEST_F(DroppedConnection, ChangesOnlyWhatTheCommandChanges) {
    // These act through tools, and one does not go with the mode.
    const std::string WITHOUT_WRITES =
        "set apply, set dfsbangradar, set authentication 8021x-only, set wdsscan, set testlog, "
        "set time, set factorydefault, set macaddress, set hwrev, ";
    std::string without_writes;
    walk_tables([&](const CliCommand &row, const std::string &path) {
        static const std::set<std::string> WRITING{"set", "del", "snmp"};
        // `set wlantest` asks for the radio's state as often as a word says.
        static const std::set<std::string> APART{"set wlantest", "snmp status", "snmp sendtrap"};
        if (row.subtable != nullptr || !WRITING.contains(path.substr(0, path.find(' '))) ||
            APART.contains(path) || path.starts_with("snmp show"))
            return;
        if (std::none_of(std::begin(WORDS), std::end(WORDS), [&](const char *words) {
                return minds_dropped_connections(path + ' ' + words);
            }))
            without_writes += path + ", ";
    });
    EXPECT_EQ(without_writes, WITHOUT_WRITES);
}

} // namespace
