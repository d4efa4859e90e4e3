// VLANs on the 5 GHz radio, which no console session reaches, and the edges of the group table.
#include "fake_daemon.h"
#include "typed_line.h"

#include "commands/vlan.h"

#include <gtest/gtest.h>

namespace {

constexpr int BAND_5G = 1;

using Writes = std::vector<std::string>;

std::string entry(int index) {
    return "/sys/group_vlan/index:" + std::to_string(index);
}

class Vlan : public testing::Test {
protected:
    void SetUp() override { pending_apply = 0; }

    // Makes a port of the 5 GHz radio a tagged member of VLAN 7, which is the table's first.
    void expect_member(GroupPort port, const std::string &index, const std::string &node) {
        daemon_.put(entry(1) + "/group_vid", "7");
        TypedLine line("7 " + index);
        line.cli().current_band = BAND_5G;
        EXPECT_EQ(set_group_member(line.cli(), port, EGRESS_TAG), CLI_DONE);
        EXPECT_EQ(daemon_.take_writes(), (Writes{"set " + entry(1) + "/group_vid 7",
                                                 "set " + entry(1) + '/' + node + "/egress 1"}));
        EXPECT_EQ(pending_apply, APPLY_WLAN);
    }

    FakeDaemon daemon_;
};

TEST_F(Vlan, NumbersThePortsOfThe5GhzRadio) {
    expect_member(GroupPort::Primary, "", "ath:17");
    expect_member(GroupPort::MultiSsid, "1", "ath:18");
    expect_member(GroupPort::MultiSsid, "3", "ath:20");
    // The first WDS link is the primary SSID's port.
    expect_member(GroupPort::Wds, "1", "ath:17");
    expect_member(GroupPort::Wds, "4", "ath:20");
    expect_member(GroupPort::Ethernet, "", "eth:1");
}

TEST_F(Vlan, ShowsThePortsOfThe5GhzRadio) {
    daemon_.put(entry(18) + "/group_vid", "4094");
    daemon_.put(entry(18) + "/group_name", "%s");
    daemon_.put(entry(18) + "/ath:18/egress", "2");
    const std::string head = "index:18, group vid:4094, group name:%s, egress: ";
    EXPECT_EQ(call_handler(show_vlan_members<GroupPort::MultiSsid>, "1", nullptr, BAND_5G).out,
              head + "untag port\n");
    EXPECT_EQ(call_handler(show_vlan_members<GroupPort::Wds>, "2", nullptr, BAND_5G).out,
              head + "untag port\n");
    EXPECT_EQ(call_handler(show_vlan_members<GroupPort::Primary>, "", nullptr, BAND_5G).out,
              head + "none\n");
}

TEST_F(Vlan, KeepsThePvidsOfThe5GhzRadio) {
    CliHandler *const primary = set_pvid<"/wlan/inf:%d/vlan_id">;
    EXPECT_EQ(call_handler(primary, "5", nullptr, BAND_5G).result, CLI_DONE);
    EXPECT_EQ(call_handler(set_multi_pvid, "6 1", nullptr, BAND_5G).result, CLI_DONE);
    EXPECT_EQ(call_handler(set_wds_pvid, "7 4", nullptr, BAND_5G).result, CLI_DONE);
    EXPECT_EQ(daemon_.take_writes(),
              (Writes{"set /wlan/inf:2/vlan_id 5", "set /wlan/inf:2/multi/index:1/vlan_id 6",
                      "set /wlan/inf:2/wds/index:4/vlan_id 7"}));
    EXPECT_EQ(pending_apply, APPLY_WLAN);
    EXPECT_EQ(call_handler(get_wds_pvid, "4", nullptr, BAND_5G).out,
              "VLAN ID of WDS (index 4) is 7\n");
}

TEST_F(Vlan, AutomaticPvidsLookAtNoMoreEntriesThanThereMayBe) {
    for (const auto &[count, pvid] : {std::pair("99999", "19"), {"17", "17"}, {"-1", "1"}}) {
        daemon_.put("/sys/group_vlan/index#", count);
        for (int index = 1; index <= 20; ++index) {
            daemon_.put(entry(index) + "/group_vid", std::to_string(index));
            daemon_.put(entry(index) + "/ath:25/egress", "2");
        }
        EXPECT_EQ(call_handler(enable_auto_pvid, "").result, CLI_DONE);
        EXPECT_EQ(pending_apply, APPLY_WLAN);
        EXPECT_EQ(daemon_.node("/wlan/inf:2/wds/index:1/vlan_id"), pvid);
    }
}

TEST_F(Vlan, AnUnknownVlanIsNoRefusalOfAName) {
    const CommandRun run = call_handler(set_group_name, "guests 20");
    EXPECT_EQ(run.out, "ERROR: No this VID.\n");
    EXPECT_EQ(run.result, CLI_DONE);
    EXPECT_EQ(call_handler(delete_group, "20").result, CLI_DONE);
    EXPECT_EQ(call_handler(delete_group, "4095").result, CLI_REFUSED);
    EXPECT_EQ(call_handler(set_vlan_member<GroupPort::System, EGRESS_TAG>, "0").result,
              CLI_REFUSED);
    EXPECT_EQ(daemon_.take_writes(), Writes{});
    EXPECT_EQ(pending_apply, 0U);
}

} // namespace
