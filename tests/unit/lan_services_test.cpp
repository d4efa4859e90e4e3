// Network settings, LAN services and policies, as far as console sessions do not show them: what
// has to restart, results of refusals, the 5 GHz radio's nodes, and refusals that print long texts.
#include "fake_daemon.h"
#include "recording_shell.h"
#include "typed_line.h"

#include "commands/autorekey.h"
#include "commands/dhcp.h"
#include "commands/limited_admin.h"
#include "commands/qos.h"
#include "tables/root.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr int BAND_5G = 1;

using Writes = std::vector<std::string>;

class LanServices : public testing::Test {
protected:
    void SetUp() override { pending_apply = 0; }

    // All of `lines` end with `result` after `text`, and change nothing.
    void expect_refusals(CliHandler *handler, int result, const std::string &text,
                         std::initializer_list<const char *> lines) {
        for (const char *line : lines) {
            const CommandRun run = call_handler(handler, line);
            EXPECT_EQ(run.result, result) << line;
            EXPECT_EQ(run.out, text) << line;
            EXPECT_EQ(daemon_.take_writes(), Writes{}) << line;
        }
        EXPECT_EQ(pending_apply, 0U);
    }

    // The text of a refusal that a console session shows.
    static std::string text_of(CliHandler *handler) { return call_handler(handler, "").out; }

    FakeDaemon daemon_;
};

struct Setter {
    const char *line;
    Writes writes;
    std::uint32_t bits;
};

// Some lists and settings are the second radio's own, others are the first one's always.
TEST_F(LanServices, SetTheSecondRadioAndMarkWhatMustRestart) {
    const std::string port = "/wlan/inf:2/rogue_ap/client:1/";
    const std::string lease = "/lan/dhcp/server/pool:1/staticdhcp/entry:1/";
    const std::string pool = "/sys/adminlimit/ipentry/index:1/";
    const Setter SETTERS[] = {
        {"ipaddr 10.0.0.1", {"set /wan/rg/inf:1/static/ip 10.0.0.1"}, APPLY_WAN | APPLY_WLAN},
        {"ipmask 255.0.0.0", {"set /wan/rg/inf:1/static/netmask 255.0.0.0"}, APPLY_WAN},
        {"gateway 10.0.0.9", {"set /wan/rg/inf:1/static/gateway 10.0.0.9"}, APPLY_WAN},
        {"ipmode static", {"set /wan/rg/inf:1/mode 1"}, APPLY_WAN | APPLY_WLAN},
        {"ipmode dynamic", {"set /wan/rg/inf:1/mode 2"}, APPLY_WAN},
        {"mcastrate 5G_Band 20", {"set /wlan/inf:1/mcastrate_a 20"}, APPLY_WLAN},
        {"acl reject", {"set /wlan/inf:2/acl/mode 2"}, APPLY_WLAN},
        {"macaddradd 00:11:22:33:44:55",
         {"set /wlan/inf:2/acl/mac:1 00:11:22:33:44:55"},
         APPLY_WLAN},
        {"macaddrdel 00:11:22:33:44:55", {"del /wlan/inf:2/acl/mac:1"}, APPLY_WLAN},
        {"rogue_set_type_mac 1 2 00:11:22:33:44:55",
         {"set /wlan/inf:1/rogue_ap/client:1/type 2",
          "set /wlan/inf:1/rogue_ap/client:1/mac 00:11:22:33:44:55"},
         APPLY_APSCAN},
        // Saves at once, and nothing restarts.
        {"intrusion 7 1",
         {"set " + port + "type 1", "set " + port + "mac 00:11:22:33:44:66",
          "set " + port + "ssid ", "set " + port + "channel ", "set " + port + "band ",
          "set " + port + "time ", "set " + port + "status "},
         0},
        {"dhcp_startip 10.0.0.2", {"set /lan/dhcp/server/pool:1/startip 10.0.0.2"}, APPLY_LAN},
        {"dhcp_endip 10.0.0.9", {"set /lan/dhcp/server/pool:1/endip 10.0.0.9"}, APPLY_DHCPD},
        {"dhcp_netmask 255.0.0.0", {"set /lan/dhcp/server/pool:1/netmask 255.0.0.0"}, APPLY_LAN},
        {"dhcp_leasetime 1h", {"set /lan/dhcp/server/pool:1/leasetime 1h"}, APPLY_DHCPD},
        {"dhcp_staticip_set_enable pool_1", {"set " + lease + "enable 1"}, APPLY_DHCPD},
        {"dhcp_staticip_set_hostname a", {"set " + lease + "hostname a"}, APPLY_DHCPD},
        {"zonedefence enable",
         {"set /wlan/inf:2/zonedefence 1", "set /wlan/inf:2/acl/mode 2"},
         APPLY_WLAN},
        {"zone-defence-addip 10.0.0.1",
         {"set /wlan/inf:2/zonedefence_ip/ipaddr:1 10.0.0.1"},
         APPLY_WLAN},
        {"zone-defence-delip 10.0.0.1", {"del /wlan/inf:2/zonedefence_ip/ipaddr:1"}, APPLY_WLAN},
        {"autorekey ssid 7 1", {"set /wlan/inf:1/multi/index:7/autorekey/enable 1"}, APPLY_WLAN},
        {"arpspoofing add 10.0.0.1 00:11:22:33:44:55",
         {"set /arpspoofing/static/index:1/ip 10.0.0.1",
          "set /arpspoofing/static/index:1/mac 00:11:22:33:44:55"},
         APPLY_ARPSPOOF},
        {"arpspoofing delete 8", {"del /arpspoofing/static/index:8"}, APPLY_ARPSPOOF},
        {"arpspoofing delall", {"del /arpspoofing/static"}, APPLY_ARPSPOOF},
        {"ladtype 1",
         {"set /sys/adminlimit/status 1", "set /sys/vlan_state 0"},
         APPLY_WAN | APPLY_WLAN},
        {"ladtype 1", {"set /sys/adminlimit/status 1"}, APPLY_WAN},
        {"ladvid 1", {"set /sys/adminlimit/vlanid 1"}, APPLY_WAN},
        {"ladippool-add 1 a b",
         {"set " + pool + "ippoolstart a", "set " + pool + "ippoolend b"},
         APPLY_WAN},
        {"ladippool-del 1",
         {"set " + pool + "ippoolstart ", "set " + pool + "ippoolend "},
         APPLY_WAN},
        {"qos rule add 1 name a", {"set /qos/rule/index:1/name/ a"}, APPLY_QOS},
        {"qos rule apply 64", {"set /qos/rule/index:64/state 1"}, APPLY_QOS},
        {"qos rule delete 64", {"del /qos/rule/index:64"}, APPLY_QOS},
        {"trafficmgr enable", {"set /trafficmgr/enable 1"}, APPLY_WAN},
        {"vlanstate enable",
         {"set /sys/vlan_state 1", "set /sys/adminlimit/status 0"},
         APPLY_WAN | APPLY_WLAN},
        {"vlanstate enable", {"set /sys/vlan_state 1"}, APPLY_WLAN},
        {"groupvid_sys Tag 7",
         {"set /sys/group_vlan/index:1/group_vid 7", "set /sys/group_vlan/index:1/sys:1/egress 1"},
         APPLY_WLAN},
        {"groupvidname a 7", {"set /sys/group_vlan/index:1/group_name a"}, APPLY_WLAN},
        {"groupviddel 7", {"del /sys/group_vlan/index:1"}, APPLY_WLAN},
        {"macclonetype auto", {"set /wlan/inf:1/macclone/type 1"}, APPLY_WLAN},
        {"maccloneaddr 00:11:22:33:44:55",
         {"set /wlan/inf:1/macclone/addr 00:11:22:33:44:55"},
         APPLY_WLAN},
    };
    const RecordingShell shell;
    daemon_.put("/runtime/wlan/inf:2/rogue_ap/client:7/mac", "00:11:22:33:44:66");
    daemon_.put("/sys/vlan_state", "1");
    for (const Setter &setter : SETTERS) {
        SCOPED_TRACE(setter.line);
        pending_apply = 0;
        dispatch_line(root_table(), std::string("set ") + setter.line, BAND_5G);
        EXPECT_EQ(daemon_.take_writes(), setter.writes);
        EXPECT_EQ(pending_apply, setter.bits);
    }
}

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
        EXPECT_EQ(dispatch_line(root_table(), line + std::to_string(limit.last_index)).out, "");
        EXPECT_EQ(daemon_.take_writes().size(), 1U);
        EXPECT_NE(dispatch_line(root_table(), line + std::to_string(limit.last_index + 1)).out, "");
        EXPECT_EQ(daemon_.take_writes(), Writes{});
    }
}

TEST_F(LanServices, ListsOfTheRadioEndWhereTheyAreFull) {
    const RecordingShell shell;
    for (int index = 1; index <= 513; ++index)
        daemon_.put("/wlan/inf:1/acl/mac:" + std::to_string(index), "entry");
    for (int index = 1; index <= 65; ++index)
        daemon_.put("/runtime/wlan/inf:1/rogue_ap/client:" + std::to_string(index) + "/mac", "ap");
    const auto lines = [](const char *command) {
        const std::string out = dispatch_line(root_table(), command).out;
        return std::count(out.begin(), out.end(), '\n');
    };
    EXPECT_EQ(lines("get acl-table"), 512);
    EXPECT_EQ(lines("get macaddrlist"), 513);
    EXPECT_EQ(lines("get intrusion"), 2 + 64);
}

// What they print is to be seen in the console sessions.
TEST_F(LanServices, OnlySomeRefusalsFail) {
    const std::pair<int, std::vector<const char *>> LINES[] = {
        {CLI_REFUSED,
         {"ipaddr 127.0.0.1",
          "ipmask 255.0.255.0",
          "macaddradd 0",
          "macaddrdel 0",
          "rogue_set_type_mac 1 2 3",
          "intrusion 3",
          "intrusion 3 4",
          "intrusion 3 -1",
          "intrusion 3 1 1",
          "dhcp_wins 0.0.0.1",
          "dhcp_leasetime 1 2",
          "dhcp_staticip_set_hostname",
          "dhcp_staticip_set_mac 0",
          "zone-defence-addip 10.0.0.0",
          "zone-defence-delip 10.0.0.1",
          "arpspoofing add 10.0.0.1 0",
          "arpspoofing delete 9",
          "pvid_eth 0",
          "multi-pvid 20 4",
          "groupvid_eth Tag 4095",
          "wds-groupvid Tag 20",
          "groupvidname x 4095",
          "macclonetype"}},
        {CLI_DONE,
         {"mcastrate 2.4G_Band 25", "autorekey time 169 Sun 1:00", "ladvid 4095", "ladippool-del 5",
          "qos rule delete 65", "groupvidname x 20", "groupviddel 20", "macclonetype Auto",
          "maccloneaddr", "maccloneaddr 0"}},
    };
    for (const auto &[result, lines] : LINES) {
        for (const char *line : lines) {
            SCOPED_TRACE(line);
            EXPECT_EQ(dispatch_line(root_table(), std::string("set ") + line).result, result);
            EXPECT_EQ(daemon_.take_writes(), Writes{});
        }
    }
    EXPECT_EQ(pending_apply, 0U);
}

TEST_F(LanServices, QosOptionsOutOfRange) {
    expect_refusals(add_qos_rule, CLI_REFUSED, text_of(add_qos_rule),
                    {"0 name x",
                     "65 name x",
                     "1 nam x",
                     "1 Name x",
                     "1 name",
                     "1 name x y",
                     "1 name x y z",
                     "1 host1ip 10.0.0.1",
                     "1 priority 4",
                     "1 priority -1",
                     "1 protocol 257",
                     "1 protocol -1",
                     "1 protocol 6 1",
                     "1 host1ip 192.168.0.250 6",
                     "1 host1ip 192.168.0.1 0",
                     "1 host1ip 192.168.0.1 255",
                     "1 host1ip 192.168.0.0 255",
                     "1 host1ip 192.168.0.1 -1",
                     "1 host2ip 192.168.0.256 1",
                     "1 host2ip 192..0.1 1",
                     "1 host2ip 4294967295 1",
                     "1 host1port 65535 2",
                     "1 host1port 65536 0",
                     "1 host1port 1 2147483647",
                     "1 host2port 0 0",
                     "1 host2port -1 2",
                     "1 host2port 10 -5"});
    expect_refusals(suspend_qos_rule, CLI_REFUSED, text_of(add_qos_rule), {"0", "65"});
    expect_refusals(apply_qos_rule, CLI_REFUSED, "set qos rule apply <index>(1~64)\n", {"", "1 2"});
    expect_refusals(suspend_qos_rule, CLI_REFUSED, "set qos rule suspend <index>(1~64)\n", {""});
    expect_refusals(delete_qos_rule, CLI_DONE, "set qos rule delete <index>(1~64)\n",
                    {"", "0", "65", "1 2"});
}

TEST_F(LanServices, QosProtocolsHaveClasses) {
    for (const auto &[protocol, type] :
         {std::pair("6", "1"), {"17", "2"}, {"1", "4"}, {"256", "0"}, {"0", "5"}, {"255", "5"}}) {
        EXPECT_EQ(call_handler(add_qos_rule, std::string("1 protocol ") + protocol).result, 0);
        EXPECT_EQ(daemon_.node("/qos/rule/index:1/protocoltype/"), type);
    }
}

TEST_F(LanServices, RekeyUsageIsNoRefusal) {
    expect_refusals(set_rekey_time, CLI_DONE, text_of(set_rekey_time),
                    {"0 Sun 12:00", "169 Sun 12:00", "x Sun 12:00", "3 Sun", "3 Sun 12:00 x"});
    expect_refusals(set_rekey_ssid, CLI_DONE, text_of(set_rekey_ssid),
                    {"8 1", "-1 1", "1 2", "1 -1", "1", "1 1 1"});
    expect_refusals(
        set_rekey_mail, CLI_DONE, text_of(set_rekey_mail),
        {"0 1 0 s f t u p 25", "4 1 0 s f t u p 25", "1 1 0 s f t u p", "1 1 0 s f t u p 25 x"});
    EXPECT_EQ(call_handler(set_rekey_mail, "2 5 0 s f t u p 25").result, CLI_DONE);
    EXPECT_EQ(daemon_.take_writes(), Writes{"set /sys/log/smtpindex 2"});
    EXPECT_EQ(pending_apply, 0U);
    EXPECT_EQ(call_handler(set_rekey_mail, "2 0 1 s f t u p 25").out, "");
    EXPECT_EQ(pending_apply, APPLY_WLAN);
}

TEST_F(LanServices, RekeyingOnThe5GhzRadioMixesTheInterfaces) {
    EXPECT_EQ(call_handler(set_rekey_time, "3 Mon 1:00", nullptr, BAND_5G).result, CLI_DONE);
    EXPECT_EQ(pending_apply, APPLY_WLAN);
    EXPECT_EQ(call_handler(set_rekey_ssid, "0 1", nullptr, BAND_5G).result, CLI_DONE);
    EXPECT_EQ(daemon_.take_writes(),
              (Writes{"set /wlan/inf:2/autorekey/time 3", "set /wlan/inf:2/autorekey/startweek Mon",
                      "set /wlan/inf:2/autorekey/starttime 1:00",
                      "set /wlan/inf:1/autorekey/ssid/enable 1"}));
    daemon_.put("/wlan/inf:1/autorekey/startweek", "Fri");
    daemon_.put("/wlan/inf:1/autorekey/starttime", "2:00");
    daemon_.put("/wlan/inf:2/multi/index:1/autorekey/enable", "1");
    daemon_.put("/runtime/wlan/inf:2/multi/index:1/passphrase", "key%n");
    EXPECT_EQ(call_handler(get_rekey, "", nullptr, BAND_5G).out,
              "autorekey change start week: Fri\nautorekey change start time: 2:00\n"
              "auto rekey change time: 0 day, 0 hour\nchange key of ssid1 is key%n\n");
}

TEST_F(LanServices, LimitedAdministrationRefusesWithoutFailing) {
    expect_refusals(set_admin_limit_type, CLI_DONE, text_of(set_admin_limit_type), {"-1", "1 1"});
    expect_refusals(set_admin_limit_type, CLI_DONE, "Please add Limit Admin IP rule!\n",
                    {"2", "3"});
    expect_refusals(add_admin_pool, CLI_DONE, "", {"0 a b", "5 a b", "x a b"});
    expect_refusals(get_admin_pool, CLI_DONE, "Please specify pool index (1-4).\n", {"0", "1 1"});
}

// One of the disabling texts says "enable".
TEST_F(LanServices, StaticLeasesAreNamedAndNumbered) {
    int number = 0;
    for (const CliCommand *row = static_lease_disable_rows.data(); row->handler != nullptr; ++row) {
        const std::string digits = std::to_string(++number);
        EXPECT_EQ(row->name, "pool_" + digits);
        EXPECT_EQ(row->help,
                  (number == 22 ? "enable" : "disable") + (" dhcp staticip pool " + digits));
        pending_apply = 0;
        EXPECT_EQ(dispatch_line(static_lease_disable_rows.data(), row->name).result, CLI_DONE);
        EXPECT_EQ(daemon_.take_writes(),
                  Writes{"set /lan/dhcp/server/pool:1/staticdhcp/entry:" + digits + "/enable 0"});
        EXPECT_EQ(pending_apply, APPLY_DHCPD);
    }
    EXPECT_EQ(number, 25);
}

} // namespace
