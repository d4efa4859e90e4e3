// Network settings, LAN services and policies, as far as console sessions do not show them: full
// lists, results of refusals, and refusals that print long texts.
#include "recording_shell.h"
#include "test_daemon.h"
#include "typed_line.h"

#include "config/apply.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

class LanServices : public testing::Test {
protected:
    void SetUp() override { pending_apply = 0; }

    TestDaemon daemon_;
};

TEST_F(LanServices, WirelessModesLimitTheMulticastRate) {
    const struct {
        const char *mode;
        const char *band;
        int last_index;
    } LIMITS[] = {{"2", "2.4G_Band", 12}, {"3", "2.4G_Band", 12}, {"4", "2.4G_Band", 12},
                  {"5", "2.4G_Band", 24}, {"9", "2.4G_Band", 24}, {"7", "5G_Band", 8},
                  {"9", "5G_Band", 12},   {"8", "5G_Band", 20},   {"4", "5G_Band", 20}};
    for (const auto &limit : LIMITS) {
        SCOPED_TRACE(std::string(limit.mode) + ' ' + limit.band);
        daemon_.put("/wlan/inf:1/wlmode", limit.mode);
        const std::string line = std::string("set mcastrate ") + limit.band + ' ';
        EXPECT_EQ(type_line(line + std::to_string(limit.last_index)).out, "");
        EXPECT_EQ(daemon_.take_writes().size(), 1U);
        EXPECT_NE(type_line(line + std::to_string(limit.last_index + 1)).out, "");
        EXPECT_EQ(daemon_.take_writes(), Lines{});
    }
}

TEST_F(LanServices, ListsOfTheRadioEndWhereTheyAreFull) {
    const RecordingShell shell;
    for (int index = 1; index <= 513; ++index)
        daemon_.put("/wlan/inf:1/acl/mac:" + std::to_string(index), "entry");
    for (int index = 1; index <= 65; ++index)
        daemon_.put("/runtime/wlan/inf:1/rogue_ap/client:" + std::to_string(index) + "/mac", "ap");
    const auto lines = [](const char *command) {
        const std::string out = type_line(command).out;
        return std::count(out.begin(), out.end(), '\n');
    };
    EXPECT_EQ(lines("get acl-table"), 512);
    EXPECT_EQ(lines("get macaddrlist"), 513);
    EXPECT_EQ(lines("get intrusion"), 2 + 64);
    // Whether it is full is told behind the last entry.
    daemon_.take_requests();
    EXPECT_EQ(type_line("set macaddradd 00:11:22:33:44:55").result, CLI_REFUSED);
    EXPECT_EQ(daemon_.take_requests().back(), "get /wlan/inf:1/acl/mac:257");
}

TEST_F(LanServices, NodesAreReadInTheOrderOfTheColumns) {
    const RecordingShell shell;
    for (const char *node :
         {"/runtime/wlan/inf:1/rogue_ap/client:1/mac", "/wlan/inf:1/rogue_ap/client:1/mac"})
        daemon_.put(node, "ap");
    daemon_.put("/runtime/wlan/inf:1/rogue_ap/client:3/mac", "other ap");
    daemon_.put("/wlan/inf:1/multi/index:1/wep_key_index", "2");
    const std::pair<const char *, const char *> READS[] = {
        {"get intrusion", "client:1/mac client:1/type client:1/band client:1/channel client:1/rssi "
                          "client:1/ssid client:1/status client:2/mac "},
        {"get rogue_ap", "client:1/mac client:1/type client:2/mac client:2/type "},
        {"get multi-wepkey 1", "index:1/wep_key_index index:1/cipher inf:1/wepkey:2 "
                               "wepkey:2/keyformat wepkey:2/keylength "},
        {"set intrusion 3 1", "client:3/mac client:1/mac client:3/mac client:2/mac client:3/mac "
                              "client:3/ssid client:3/channel client:3/band client:3/time "
                              "client:3/status "},
    };
    for (const auto &[line, expected] : READS) {
        daemon_.take_requests();
        type_line(line);
        std::string reads;
        for (const std::string &request : daemon_.take_requests()) {
            if (request.starts_with("get ") && !request.starts_with("get /aparray/"))
                reads += request.substr(request.rfind('/', request.rfind('/') - 1) + 1) + ' ';
        }
        EXPECT_EQ(reads, expected) << line;
    }
}

// What most of them print is in the reference, and so are the ends of ranges.
TEST_F(LanServices, RefusalsChangeNothing) {
    const std::pair<int, Lines> CASES[] = {
        {CLI_REFUSED,
         {"ipmask 255.0.255.0",
          "dhcp_wins 0.0.0.1",
          "dhcp_leasetime 1 2",
          "dhcp_staticip_set_mac 0",
          "macaddradd 0",
          "macaddrdel 0",
          "rogue_set_type_mac 1 2 3",
          "intrusion 3",
          "intrusion 3 4",
          "intrusion 3 -1",
          "intrusion 3 1 1",
          "zone-defence-addip 10.0.0.0",
          "zone-defence-delip 10.0.0.1",
          "arpspoofing add 10.0.0.1 0",
          "arpspoofing delete 9",
          "multi-pvid 20 4",
          "groupvid_eth Tag 4095",
          "wds-groupvid Tag 20",
          "groupvidname x 4095",
          "groupviddel 4095",
          "qos rule apply 1 2",
          "qos rule suspend"}},
        {CLI_DONE,
         {"mcastrate 2.4G_Band 25",
          "ladvid 4095",
          "ladippool-del 5",
          "ladippool-add 0 a b",
          "ladippool-add x a b",
          "ladtype 1 1",
          "ladtype 2",
          "groupvidname x 20",
          "maccloneaddr 0",
          "qos rule delete 1 2",
          "qos rule delete 65",
          "autorekey time 169 Sun 1:00",
          "autorekey time x Sun 12:00",
          "autorekey time +5 Sun 12:00",
          "autorekey time 3 Sun 1 x",
          "autorekey ssid 1",
          "autorekey ssid 1 2",
          "autorekey ssid 1 1 1",
          "autorekey mail 1 1 0 s f t u p",
          "autorekey mail 1 1 0 s f t u p 25 x"}},
    };
    for (const auto &[result, lines] : CASES) {
        for (const std::string &line : lines)
            EXPECT_EQ(type_line("set " + line).result, result) << line;
    }
    const std::string usage = type_line("set qos rule add").out;
    for (const char *rule :
         {"1 nam x", "1 Name x", "1 name", "1 name x y", "1 protocol 6 1", "1 host1port 65535 2",
          "1 host1port 1 2147483647", "1 host2port 0 0", "1 host2port 10 -10", "1 host1ip 10.0.0.1",
          "1 host1ip 10.0.0.0 255", "1 host1ip 10.0.0.250 6", "1 host2ip 192..0.1 1",
          "1 host2ip 10.0.0.256 1", "1 host2ip 4294967295 1"})
        EXPECT_EQ(type_line(std::string("set qos rule add ") + rule).out, usage) << rule;
    EXPECT_EQ(daemon_.take_writes(), Lines{});
    EXPECT_EQ(pending_apply, 0U);
}

TEST_F(LanServices, QosProtocolsHaveClasses) {
    for (const auto &[protocol, type] :
         {std::pair("6", "1"), {"17", "2"}, {"1", "4"}, {"256", "0"}, {"0", "5"}, {"255", "5"}}) {
        EXPECT_EQ(type_line(std::string("set qos rule add 1 protocol ") + protocol).result,
                  CLI_DONE);
        EXPECT_EQ(daemon_.node("/qos/rule/index:1/protocoltype/"), type);
    }
}

TEST_F(LanServices, RekeyMailRestartsOnlyWhenAllOfItIsGood) {
    EXPECT_EQ(type_line("set autorekey mail 2 5 0 s f t u p 25").result, CLI_DONE);
    EXPECT_EQ(daemon_.take_writes(), Lines{"set /sys/log/smtpindex 2"});
    EXPECT_EQ(pending_apply, 0U);
    EXPECT_EQ(type_line("set autorekey mail 2 0 1 s f t u p 25").out, "");
    EXPECT_EQ(pending_apply, APPLY_WLAN);
}

TEST_F(LanServices, AutomaticPvidsLookAtTheEntriesThatAreCounted) {
    for (int index = 1; index <= 257; ++index) {
        const std::string entry = "/sys/group_vlan/index:" + std::to_string(index);
        daemon_.put(entry + "/group_vid", std::to_string(index));
        daemon_.put(entry + "/ath:25/egress", "2");
        if (index != 40 && index != 257)
            continue;
        EXPECT_EQ(type_line("set autosetpvid enable").result, CLI_DONE);
        EXPECT_EQ(pending_apply, APPLY_WLAN);
        EXPECT_EQ(daemon_.node("/wlan/inf:2/wds/index:1/vlan_id"), index == 40 ? "40" : "256");
    }
}

} // namespace
