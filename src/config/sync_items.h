// The settings that an access-point array can keep in step, each with its flag and the nodes whose
// writes change it. Everything that deals with them reads this one table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>

enum class SyncRuleKind : std::uint8_t {
    Equal,    // the path is the text
    Prefix,   // the path begins with the text
    Contains, // the text occurs in the path
    Multi,    // the path is below interface 1's multi-SSID slots and contains the text
};

struct SyncRule {
    SyncRuleKind kind;
    const char *text;
};

struct SyncItem {
    const char *word; // what the administrator calls it
    const char *node; // its flag: 1 = synchronised
    std::span<const SyncRule> rules;
};

namespace sync_rules {

using enum SyncRuleKind;

// Only interface 1 is covered: writes to the 5 GHz radio never mark the configuration.
inline constexpr SyncRule SSID[] = {{Equal, "/wlan/inf:1/ssid"}};
inline constexpr SyncRule SSID_HIDDEN[] = {{Equal, "/wlan/inf:1/ssidhidden"}};
inline constexpr SyncRule AUTO_CHANNEL[] = {{Equal, "/wlan/inf:1/autochannel"}};
inline constexpr SyncRule CHANNEL_WIDTH[] = {{Equal, "/wlan/inf:1/cwmmode"}};
inline constexpr SyncRule SECURITY[] = {
    {Equal, "/wlan/inf:1/authentication"},
    {Equal, "/wlan/inf:1/defkey"},
    {Equal, "/wlan/inf:1/wpa/embradius/state"},
    {Equal, "/wlan/inf:1/wpa/grp_rekey_interval"},
    {Contains, "/wlan/inf:1/wepkey"},
    {Contains, "/wlan/inf:1/wpa"},
    {Prefix, "/wlan/inf:1/wpa/embradius/eap_user/"},
};
inline constexpr SyncRule FIXED_RATE[] = {{Equal, "/wlan/inf:1/fixedrate"}};
inline constexpr SyncRule BEACON_INTERVAL[] = {{Equal, "/wlan/inf:1/beaconinterval"}};
inline constexpr SyncRule DTIM[] = {{Equal, "/wlan/inf:1/dtim"}};
inline constexpr SyncRule TX_POWER[] = {{Equal, "/wlan/inf:1/txpower"}};
// Compared with the unexpanded text, so it never holds. Meant so.
inline constexpr SyncRule WMM[] = {{Equal, "/wlan/inf:%d/wmm/enable"}};
inline constexpr SyncRule ACK_TIMEOUT[] = {
    {Equal, "/wlan/inf:1/acktimeout_a"},
    {Equal, "/wlan/inf:1/acktimeout_g"},
};
inline constexpr SyncRule SHORT_GI[] = {{Equal, "/wlan/inf:1/shortgi"}};
inline constexpr SyncRule IGMP_SNOOP[] = {{Equal, "/wlan/inf:1/igmpsnoop"}};
inline constexpr SyncRule CONNECTION_LIMIT[] = {{Equal, "/wlan/inf:1/assoc_limit/enable"}};
inline constexpr SyncRule LINK_INTEGRITY[] = {{Equal, "/wlan/inf:1/ethlink"}};
inline constexpr SyncRule ACL[] = {
    {Equal, "/wlan/inf:1/acl/mode"},
    {Prefix, "/wlan/inf:1/acl/mac"},
    {Equal, "/wlan/inf:1/multi/index:1/w_partition"},
    {Equal, "/wlan/inf:1/multi/index:2/w_partition"},
    {Equal, "/wlan/inf:1/multi/index:3/w_partition"},
    {Equal, "/wlan/inf:1/multi/index:4/w_partition"},
    {Equal, "/wlan/inf:1/multi/index:5/w_partition"},
    {Equal, "/wlan/inf:1/multi/index:6/w_partition"},
    {Equal, "/wlan/inf:1/multi/index:7/w_partition"},
};
// Holds for "ssid_hidden" nodes too.
inline constexpr SyncRule MULTI_SSID[] = {{Multi, "ssid"}};
inline constexpr SyncRule MULTI_SSID_HIDDEN[] = {{Multi, "ssid_hidden"}};
inline constexpr SyncRule MULTI_SECURITY[] = {
    {Multi, "auth"},          {Multi, "cipher"},          {Multi, "wep_key_index"},
    {Multi, "passphrase"},    {Multi, "interval"},        {Multi, "radius_server"},
    {Multi, "radius_port"},   {Multi, "radius_secret"},   {Multi, "b_radius_server"},
    {Multi, "b_radius_port"}, {Multi, "b_radius_secret"}, {Multi, "acctstate"},
    {Multi, "acctserver"},    {Multi, "acctport"},        {Multi, "acctsecret"},
    {Multi, "b_acctserver"},  {Multi, "b_acctport"},      {Multi, "b_acctsecret"},
};
inline constexpr SyncRule MULTI_WMM[] = {{Multi, "wmm/enable"}};
inline constexpr SyncRule QOS[] = {
    {Prefix, "/qos/"},
    {Equal, "/lan/ethernet/updownlink"},
    {Equal, "/wlan/inf:1/updownlink"},
    {Prefix, "/wlan/inf:1/multi/index"},
    {Prefix, "/wlan/inf:1/wds/list/index"},
    {Prefix, "/trafficctrl/"},
};
inline constexpr SyncRule VLAN[] = {
    {Prefix, "/sys/group_vlan"},    {Equal, "/sys/vlan_state"},       {Equal, "/sys/vlan_mode"},
    {Equal, "/sys/vlan_id"},        {Equal, "/lan/ethernet/vlan_id"}, {Equal, "/sys/auto_set_pvid"},
    {Equal, "/wlan/inf:1/vlan_id"},
};
inline constexpr SyncRule SCHEDULE[] = {{Prefix, "/schedule/"}};
inline constexpr SyncRule TIME[] = {{Prefix, "/time/"}};
inline constexpr SyncRule LOG[] = {{Prefix, "/sys/log/"}, {Prefix, "/security/log/"}};
inline constexpr SyncRule ADMIN_LIMIT[] = {{Prefix, "/sys/adminlimit/"}};
inline constexpr SyncRule SYSTEM[] = {{Equal, "/sys/systemName"}, {Equal, "/sys/systemLocation"}};
inline constexpr SyncRule CONSOLE_PROTOCOL[] = {
    {Equal, "/sys/consoleprotocol/protocol"},
    {Equal, "/sys/consoleprotocol/timeout"},
};
inline constexpr SyncRule SNMP[] = {{Prefix, "/sys/snmpd/"}, {Equal, "/sys/snmptrap/status"}};
inline constexpr SyncRule PING_CONTROL[] = {{Equal, "/sys/pingctl"}};
inline constexpr SyncRule DHCP[] = {{Prefix, "/lan/dhcp/"}};
inline constexpr SyncRule LOGIN[] = {{Equal, "/sys/user:1/password"}, {Equal, "/sys/user:1/name"}};

} // namespace sync_rules

// In the order in which the flags are read.
inline constexpr SyncItem SYNC_ITEMS[] = {
    {"ssid", "/aparray/sync/ssid", sync_rules::SSID},
    {"ssidhidden", "/aparray/sync/ssidhidden", sync_rules::SSID_HIDDEN},
    {"autochannel", "/aparray/sync/autochannel", sync_rules::AUTO_CHANNEL},
    {"channelwidth", "/aparray/sync/channelwidth", sync_rules::CHANNEL_WIDTH},
    {"security", "/aparray/sync/security", sync_rules::SECURITY},
    {"fixedrate", "/aparray/sync/fixedrate", sync_rules::FIXED_RATE},
    {"beaconinterval", "/aparray/sync/beaconinterval", sync_rules::BEACON_INTERVAL},
    {"dtim", "/aparray/sync/dtim", sync_rules::DTIM},
    {"txpower", "/aparray/sync/txpower", sync_rules::TX_POWER},
    {"wmm", "/aparray/sync/wmm", sync_rules::WMM},
    {"acktimeout", "/aparray/sync/acktimeout", sync_rules::ACK_TIMEOUT},
    {"shortgi", "/aparray/sync/shortgi", sync_rules::SHORT_GI},
    {"igmpsnoop", "/aparray/sync/igmpsnoop", sync_rules::IGMP_SNOOP},
    {"connectionlimit", "/aparray/sync/connectionlimit", sync_rules::CONNECTION_LIMIT},
    {"linkintegrity", "/aparray/sync/linkintegrity", sync_rules::LINK_INTEGRITY},
    {"acl", "/aparray/sync/acl", sync_rules::ACL},
    {"multissid", "/aparray/sync/multi/ssid", sync_rules::MULTI_SSID},
    {"multissid_hidden", "/aparray/sync/multi/ssid_hidden", sync_rules::MULTI_SSID_HIDDEN},
    {"multisecurity", "/aparray/sync/multi/security", sync_rules::MULTI_SECURITY},
    {"multiwmm", "/aparray/sync/multi/wmm", sync_rules::MULTI_WMM},
    {"qos", "/aparray/sync/qos", sync_rules::QOS},
    {"vlan", "/aparray/sync/vlan", sync_rules::VLAN},
    {"schedule", "/aparray/sync/schedule", sync_rules::SCHEDULE},
    {"time", "/aparray/sync/time", sync_rules::TIME},
    {"log", "/aparray/sync/log", sync_rules::LOG},
    {"adminlimit", "/aparray/sync/adminlimit", sync_rules::ADMIN_LIMIT},
    {"system", "/aparray/sync/system", sync_rules::SYSTEM},
    {"consoleprotocol", "/aparray/sync/consoleprotocol", sync_rules::CONSOLE_PROTOCOL},
    {"snmp", "/aparray/sync/snmp", sync_rules::SNMP},
    {"pingctl", "/aparray/sync/pingctl", sync_rules::PING_CONTROL},
    {"dhcp", "/aparray/sync/dhcp", sync_rules::DHCP},
    {"login", "/aparray/sync/login", sync_rules::LOGIN},
};

inline constexpr std::size_t SYNC_ITEM_COUNT = std::size(SYNC_ITEMS);
