// The radio that no word of the console selects: the nodes that are its own, those that are the
// first one's always, and what has to restart after each change.
#include "fake_daemon.h"
#include "recording_shell.h"
#include "typed_line.h"

#include "config/apply.h"
#include "tables/root.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr int SECOND_RADIO = 1;

class SecondRadio : public testing::Test {
protected:
    static std::string printed_by(const std::string &line) {
        return dispatch_line(root_table(), line, SECOND_RADIO).out;
    }

    // What a line writes, and then what it runs.
    std::string effects_of(const std::string &line) {
        pending_apply = 0;
        printed_by(line);
        std::string effects;
        for (const std::string &write : daemon_.take_writes())
            effects += write + "; ";
        for (const std::string &command : shell_.take_lines())
            effects += "ran " + command + "; ";
        return effects.substr(0, effects.size() - std::min<std::size_t>(effects.size(), 2));
    }

    FakeDaemon daemon_;
    RecordingShell shell_;
};

TEST_F(SecondRadio, HasNodesOfItsOwnAndRestarts) {
    const struct {
        const char *line;
        const char *effects;
        std::uint32_t bits = APPLY_WLAN;
    } SETTERS[] = {
        {"set ipaddr 10.0.0.1", "set /wan/rg/inf:1/static/ip 10.0.0.1", APPLY_WAN | APPLY_WLAN},
        {"set ipmask 255.0.0.0", "set /wan/rg/inf:1/static/netmask 255.0.0.0", APPLY_WAN},
        {"set gateway 10.0.0.9", "set /wan/rg/inf:1/static/gateway 10.0.0.9", APPLY_WAN},
        {"set ipmode static", "set /wan/rg/inf:1/mode 1", APPLY_WAN | APPLY_WLAN},
        {"set ipmode dynamic", "set /wan/rg/inf:1/mode 2", APPLY_WAN},
        {"set mcastrate 5G_Band 20", "set /wlan/inf:1/mcastrate_a 20"},
        {"set acl reject", "set /wlan/inf:2/acl/mode 2"},
        {"set macaddradd 00:11:22:33:44:55", "set /wlan/inf:2/acl/mac:1 00:11:22:33:44:55"},
        {"set macaddrdel 00:11:22:33:44:55", "del /wlan/inf:2/acl/mac:1"},
        {"set rogue_set_type_mac 1 2 00:11:22:33:44:55",
         "set /wlan/inf:1/rogue_ap/client:1/type 2; "
         "set /wlan/inf:1/rogue_ap/client:1/mac 00:11:22:33:44:55",
         APPLY_APSCAN},
        // Saves at once, and nothing restarts.
        {"set intrusion 7 1",
         "set /wlan/inf:2/rogue_ap/client:1/type 1; "
         "set /wlan/inf:2/rogue_ap/client:1/mac 00:11:22:33:44:66; "
         "set /wlan/inf:2/rogue_ap/client:1/ssid ; "
         "set /wlan/inf:2/rogue_ap/client:1/channel ; "
         "set /wlan/inf:2/rogue_ap/client:1/band ; set /wlan/inf:2/rogue_ap/client:1/time ; "
         "set /wlan/inf:2/rogue_ap/client:1/status ; "
         "ran /etc/scripts/misc/profile.sh put",
         0},
        {"set dhcp_startip 10.0.0.2", "set /lan/dhcp/server/pool:1/startip 10.0.0.2", APPLY_LAN},
        {"set dhcp_endip 10.0.0.9", "set /lan/dhcp/server/pool:1/endip 10.0.0.9", APPLY_DHCPD},
        {"set dhcp_netmask 255.0.0.0", "set /lan/dhcp/server/pool:1/netmask 255.0.0.0", APPLY_LAN},
        {"set dhcp_leasetime 1h", "set /lan/dhcp/server/pool:1/leasetime 1h", APPLY_DHCPD},
        {"set dhcp_staticip_set_enable pool_1",
         "set /lan/dhcp/server/pool:1/staticdhcp/entry:1/enable 1", APPLY_DHCPD},
        {"set dhcp_staticip_set_hostname a",
         "set /lan/dhcp/server/pool:1/staticdhcp/entry:1/hostname a", APPLY_DHCPD},
        {"set zonedefence enable", "set /wlan/inf:2/zonedefence 1; set /wlan/inf:2/acl/mode 2"},
        {"set zone-defence-addip 10.0.0.1", "set /wlan/inf:2/zonedefence_ip/ipaddr:1 10.0.0.1"},
        {"set zone-defence-delip 10.0.0.1", "del /wlan/inf:2/zonedefence_ip/ipaddr:1"},
        {"set autorekey ssid 7 1", "set /wlan/inf:1/multi/index:7/autorekey/enable 1"},
        {"set arpspoofing add 10.0.0.1 00:11:22:33:44:55",
         "set /arpspoofing/static/index:1/ip 10.0.0.1; "
         "set /arpspoofing/static/index:1/mac 00:11:22:33:44:55",
         APPLY_ARPSPOOF},
        {"set arpspoofing delete 8", "del /arpspoofing/static/index:8", APPLY_ARPSPOOF},
        {"set arpspoofing delall", "del /arpspoofing/static", APPLY_ARPSPOOF},
        {"set ladtype 1", "set /sys/adminlimit/status 1; set /sys/vlan_state 0",
         APPLY_WAN | APPLY_WLAN},
        {"set ladtype 1", "set /sys/adminlimit/status 1", APPLY_WAN},
        {"set ladvid 1", "set /sys/adminlimit/vlanid 1", APPLY_WAN},
        {"set ladippool-add 1 a b",
         "set /sys/adminlimit/ipentry/index:1/ippoolstart a; "
         "set /sys/adminlimit/ipentry/index:1/ippoolend b",
         APPLY_WAN},
        {"set ladippool-del 1",
         "set /sys/adminlimit/ipentry/index:1/ippoolstart ; "
         "set /sys/adminlimit/ipentry/index:1/ippoolend ",
         APPLY_WAN},
        {"set qos rule add 1 name a", "set /qos/rule/index:1/name/ a", APPLY_QOS},
        {"set qos rule apply 64", "set /qos/rule/index:64/state 1", APPLY_QOS},
        {"set qos rule delete 64", "del /qos/rule/index:64", APPLY_QOS},
        {"set trafficmgr enable", "set /trafficmgr/enable 1", APPLY_WAN},
        {"set vlanstate enable", "set /sys/vlan_state 1; set /sys/adminlimit/status 0",
         APPLY_WAN | APPLY_WLAN},
        {"set vlanstate enable", "set /sys/vlan_state 1"},
        {"set groupvid_sys Tag 7",
         "set /sys/group_vlan/index:1/group_vid 7; set /sys/group_vlan/index:1/sys:1/egress 1"},
        {"set groupvidname a 7", "set /sys/group_vlan/index:1/group_name a"},
        {"set groupviddel 7", "del /sys/group_vlan/index:1"},
        {"set macclonetype auto", "set /wlan/inf:1/macclone/type 1"},
        {"set maccloneaddr 00:11:22:33:44:55", "set /wlan/inf:1/macclone/addr 00:11:22:33:44:55"},
        {"set authentication wpa-psk", "ran rgdb -s /wlan/inf:2/authentication 3"},
        {"set cipher wep", "ran rgdb -s /wlan/inf:2/wpa/wepmode 1"},
        {"set cipher no",
         "ran rgdb -s /wlan/inf:2/wpa/wepmode 0; ran rgdb -s /wlan/inf:2/authentication 0"},
        {"set apmode ap", "set /wlan/inf:2/ap_mode 0"},
        {"set apmode apc", "set /wlan/inf:2/ap_mode 1"},
        {"set apmode wdsap", "set /wlan/inf:2/ap_mode 3"},
        {"set apmode wds", "set /wlan/inf:2/ap_mode 4"},
        {"del key 2", "set /wlan/inf:1/wepkey:2 ; set /wlan/inf:1/wepkey:2/keyformat 2; "
                      "set /wlan/inf:1/wepkey:2/keylength 64"},
        {"set keylength 128bit 2",
         "set /wlan/inf:1/wepkey:2 ; set /wlan/inf:1/wepkey:2/keylength 128"},
        {"set defkeyindex 2",
         "set /wlan/inf:1/defkey 2; set /wlan/inf:1/keyformat 2; set /wlan/inf:1/keylength 128"},
        {"set passphrase passphrase", "set /wlan/inf:2/wpa/wpapsk passphrase"},
        {"set groupkeyupdate 300", "set /wlan/inf:2/wpa/grp_rekey_interval 300"},
        {"set username admin", "set /sys/user:1/name admin", APPLY_WEB},
        {"set password secret", "set /sys/user:1/password secret", APPLY_WEB},
        {"set multi-state disable", "set /wlan/inf:2/multi/state 0"},
        {"set multi-state enable", "set /wlan/inf:2/multi/state 1"},
        {"set multi-pri-state enable", "set /wlan/inf:2/multi/pri_by_ssid 1"},
        {"set multi-pri-state disable", "set /wlan/inf:2/multi/pri_by_ssid 0"},
        {"set multi-ind-state enable 1", "set /wlan/inf:2/multi/index:1/state 1"},
        {"set multi-ssid abc 3", "set /wlan/inf:2/multi/index:3/ssid abc"},
        {"set multi-auth wpa-psk 1", "set /wlan/inf:2/multi/index:1/auth 3"},
        {"set multi-cipher aes 1", "set /wlan/inf:2/multi/index:1/cipher 3"},
        {"set multi-cipher wep 1", ""},
        {"set multi-cipher no 1",
         "set /wlan/inf:2/multi/index:1/cipher 0; set /wlan/inf:2/multi/index:1/auth 0"},
        {"set priority 2", "set /wlan/inf:2/pri_bit 2"},
        {"set d-wepkeylen 64bit", "ran rgdb -s /wlan/inf:2/d_wepkeylen 64"},
        {"set d-wepkeyupdate 300", "set /wlan/inf:2/d_wep_rekey_interval 300"},
        // A peer of the first radio is no peer of the second one.
        {"set wdsmacadd 00:11:22:33:44:55 1", "", 0},
        {"set wdsmacadd 00:11:22:33:44:5a 1",
         "set /wlan/inf:2/wds/list/index:1/mac 00:11:22:33:44:5a"},
        {"set wdsmacadd 00:11:22:33:44:5a 2",
         "set /wlan/inf:2/wds/list/index:2/mac 00:11:22:33:44:5a"},
        {"set wdsmacadd 00:11:22:33:44:55 5", ""},
        {"set wdsmacdel 1", "set /wlan/inf:2/wds/list/index:1/mac "},
        {"set wdsscan", "ran sh /etc/templates/wds_scan.sh g", 0},
        {"set ssid Attic", "set /wlan/inf:2/ssid Attic"},
        {"set wmm enable", "set /wlan/inf:2/wmm/enable 1"},
        {"set cwm auto", "set /wlan/inf:2/cwmmode 1"},
        {"set dtim 3", "set /wlan/inf:2/dtim 3"},
        {"set acktimeout_g 48", "set /wlan/inf:2/acktimeout_g 48"},
        // These know one radio only.
        {"set wlmode an", "set /wlan/inf:1/wlmode 8"},
        {"set dfstest 1", "set /wlan/inf:1/dfstest 1"},
        {"set band 5G", "set /wlan/ch_mode 1"},
        // The rates are counted without those of CCK, which leave the code alone.
        {"set fixedrate 54M", "set /wlan/inf:2/fixedrate 7"},
        {"set fixedrate 6M", "set /wlan/inf:2/fixedrate 0"},
        {"set fixedrate auto", "set /wlan/inf:2/fixedrate 31"},
        {"set fixedrate 11M", ""},
        {"set fixedrate 5.5M", ""},
        {"set fixedrate 2M", ""},
        {"set fixedrate 1M", ""},
        {"set autorekey time 3 Mon 1:00",
         "set /wlan/inf:2/autorekey/time 3; set /wlan/inf:2/autorekey/startweek Mon; "
         "set /wlan/inf:2/autorekey/starttime 1:00"},
        {"set autorekey ssid 0 1", "set /wlan/inf:1/autorekey/ssid/enable 1"},
        {"set pvid_primary 5", "set /wlan/inf:2/vlan_id 5"},
        {"set multi-pvid 6 1", "set /wlan/inf:2/multi/index:1/vlan_id 6"},
        {"set wds-pvid 7 4", "set /wlan/inf:2/wds/index:4/vlan_id 7"},
        // The first WDS link is the primary SSID's port.
        {"set groupvid_primary Tag 7",
         "set /sys/group_vlan/index:1/group_vid 7; set /sys/group_vlan/index:1/ath:17/egress 1"},
        {"set multi-groupvid Tag 7 1",
         "set /sys/group_vlan/index:1/group_vid 7; set /sys/group_vlan/index:1/ath:18/egress 1"},
        {"set multi-groupvid Tag 7 3",
         "set /sys/group_vlan/index:1/group_vid 7; set /sys/group_vlan/index:1/ath:20/egress 1"},
        {"set wds-groupvid Tag 7 1",
         "set /sys/group_vlan/index:1/group_vid 7; set /sys/group_vlan/index:1/ath:17/egress 1"},
        {"set wds-groupvid Tag 7 4",
         "set /sys/group_vlan/index:1/group_vid 7; set /sys/group_vlan/index:1/ath:20/egress 1"},
        {"set groupvid_eth Tag 7",
         "set /sys/group_vlan/index:1/group_vid 7; set /sys/group_vlan/index:1/eth:1/egress 1"},
    };
    daemon_.put("/runtime/wlan/inf:2/rogue_ap/client:7/mac", "00:11:22:33:44:66");
    daemon_.put("/sys/vlan_state", "1");
    daemon_.put("/wlan/inf:1/wds/list/index:4/mac", "00:11:22:33:44:55");
    for (const auto &setter : SETTERS) {
        EXPECT_EQ(effects_of(setter.line), setter.effects) << setter.line;
        EXPECT_EQ(pending_apply, setter.bits) << setter.line;
    }
}

TEST_F(SecondRadio, IsShownFromItsOwnNodes) {
    const std::string entry = "/sys/group_vlan/index:18/";
    const std::string members = "index:18, group vid:4094, group name:%s, egress: ";
    for (const auto &[node, text] : {
             std::pair(std::string("/wlan/inf:2/ssid"), "Upstairs"),
             {"/wlan/inf:2/acktimeout_a", "25"},
             {"/runtime/stats/wlan/inf:2/channel", "149"},
             {"/wlan/inf:2/wds/index:4/vlan_id", "7"},
             {entry + "group_vid", "4094"},
             {entry + "group_name", "%s"},
             {entry + "ath:18/egress", "2"},
             // The schedule is the first radio's, the keys are the second one's.
             {"/wlan/inf:1/autorekey/startweek", "Fri"},
             {"/wlan/inf:1/autorekey/starttime", "2:00"},
             {"/wlan/inf:2/multi/index:1/autorekey/enable", "1"},
             {"/runtime/wlan/inf:2/multi/index:1/passphrase", "key%n"},
         })
        daemon_.put(node, text);
    EXPECT_EQ(printed_by("get ssid"), "SSID:Upstairs\n");
    EXPECT_EQ(printed_by("get acktimeout"), "acktimeout:25 micro sec\n");
    EXPECT_EQ(printed_by("get channel"), "channel:149\n");
    EXPECT_EQ(printed_by("get wds-pvid 4"), "VLAN ID of WDS (index 4) is 7\n");
    EXPECT_EQ(printed_by("get multi-groupvid 1"), members + "untag port\n");
    EXPECT_EQ(printed_by("get wds-groupvid 2"), members + "untag port\n");
    EXPECT_EQ(printed_by("get groupvid_primary"), members + "none\n");
    EXPECT_EQ(printed_by("get autorekey"),
              "autorekey change start week: Fri\nautorekey change start time: 2:00\n"
              "auto rekey change time: 0 day, 0 hour\nchange key of ssid1 is key%n\n");
    // Codes without a rate are shown as the lowest one.
    for (const auto &[code, word] : {std::pair("7", "54M"),
                                     {"0", "6M"},
                                     {"31", "auto"},
                                     {"8", "6M"},
                                     {"-1", "6M"},
                                     {"30", "6M"}}) {
        daemon_.put("/wlan/inf:2/fixedrate", code);
        EXPECT_EQ(printed_by("get fixedrate"), std::string("fixedrate:") + word + '\n');
    }
}

} // namespace
