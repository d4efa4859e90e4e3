#include "config/array_sync.h"

#include "config/node_access.h"

#include <algorithm>
#include <cstring>
#include <string_view>

std::uint32_t array_cfg_dirty = 0;

namespace {

using enum SyncRuleKind;

constexpr std::string_view MULTI_SSID_NODES = "/wlan/inf:1/multi/";

// Only interface 1 is covered: writes to the 5 GHz radio never mark the configuration.
constexpr SyncRule SSID[] = {{Equal, "/wlan/inf:1/ssid"}};
constexpr SyncRule SSID_HIDDEN[] = {{Equal, "/wlan/inf:1/ssidhidden"}};
constexpr SyncRule AUTO_CHANNEL[] = {{Equal, "/wlan/inf:1/autochannel"}};
constexpr SyncRule CHANNEL_WIDTH[] = {{Equal, "/wlan/inf:1/cwmmode"}};
constexpr SyncRule SECURITY[] = {
    {Equal, "/wlan/inf:1/authentication"},
    {Equal, "/wlan/inf:1/defkey"},
    {Equal, "/wlan/inf:1/wpa/embradius/state"},
    {Equal, "/wlan/inf:1/wpa/grp_rekey_interval"},
    {Contains, "/wlan/inf:1/wepkey"},
    {Contains, "/wlan/inf:1/wpa"},
    {Prefix, "/wlan/inf:1/wpa/embradius/eap_user/"},
};
constexpr SyncRule FIXED_RATE[] = {{Equal, "/wlan/inf:1/fixedrate"}};
constexpr SyncRule BEACON_INTERVAL[] = {{Equal, "/wlan/inf:1/beaconinterval"}};
constexpr SyncRule DTIM[] = {{Equal, "/wlan/inf:1/dtim"}};
constexpr SyncRule TX_POWER[] = {{Equal, "/wlan/inf:1/txpower"}};
// Compared with the unexpanded text, so it never holds. Meant so.
constexpr SyncRule WMM[] = {{Equal, "/wlan/inf:%d/wmm/enable"}};
constexpr SyncRule ACK_TIMEOUT[] = {
    {Equal, "/wlan/inf:1/acktimeout_a"},
    {Equal, "/wlan/inf:1/acktimeout_g"},
};
constexpr SyncRule SHORT_GI[] = {{Equal, "/wlan/inf:1/shortgi"}};
constexpr SyncRule IGMP_SNOOP[] = {{Equal, "/wlan/inf:1/igmpsnoop"}};
constexpr SyncRule CONNECTION_LIMIT[] = {{Equal, "/wlan/inf:1/assoc_limit/enable"}};
constexpr SyncRule LINK_INTEGRITY[] = {{Equal, "/wlan/inf:1/ethlink"}};
constexpr SyncRule ACL[] = {
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
constexpr SyncRule MULTI_SSID[] = {{Multi, "ssid"}};
constexpr SyncRule MULTI_SSID_HIDDEN[] = {{Multi, "ssid_hidden"}};
constexpr SyncRule MULTI_SECURITY[] = {
    {Multi, "auth"},          {Multi, "cipher"},          {Multi, "wep_key_index"},
    {Multi, "passphrase"},    {Multi, "interval"},        {Multi, "radius_server"},
    {Multi, "radius_port"},   {Multi, "radius_secret"},   {Multi, "b_radius_server"},
    {Multi, "b_radius_port"}, {Multi, "b_radius_secret"}, {Multi, "acctstate"},
    {Multi, "acctserver"},    {Multi, "acctport"},        {Multi, "acctsecret"},
    {Multi, "b_acctserver"},  {Multi, "b_acctport"},      {Multi, "b_acctsecret"},
};
constexpr SyncRule MULTI_WMM[] = {{Multi, "wmm/enable"}};
constexpr SyncRule QOS[] = {
    {Prefix, "/qos/"},
    {Equal, "/lan/ethernet/updownlink"},
    {Equal, "/wlan/inf:1/updownlink"},
    {Prefix, "/wlan/inf:1/multi/index"},
    {Prefix, "/wlan/inf:1/wds/list/index"},
    {Prefix, "/trafficctrl/"},
};
constexpr SyncRule VLAN[] = {
    {Prefix, "/sys/group_vlan"},    {Equal, "/sys/vlan_state"},       {Equal, "/sys/vlan_mode"},
    {Equal, "/sys/vlan_id"},        {Equal, "/lan/ethernet/vlan_id"}, {Equal, "/sys/auto_set_pvid"},
    {Equal, "/wlan/inf:1/vlan_id"},
};
constexpr SyncRule SCHEDULE[] = {{Prefix, "/schedule/"}};
constexpr SyncRule TIME[] = {{Prefix, "/time/"}};
constexpr SyncRule LOG[] = {{Prefix, "/sys/log/"}, {Prefix, "/security/log/"}};
constexpr SyncRule ADMIN_LIMIT[] = {{Prefix, "/sys/adminlimit/"}};
constexpr SyncRule SYSTEM[] = {{Equal, "/sys/systemName"}, {Equal, "/sys/systemLocation"}};
constexpr SyncRule CONSOLE_PROTOCOL[] = {
    {Equal, "/sys/consoleprotocol/protocol"},
    {Equal, "/sys/consoleprotocol/timeout"},
};
constexpr SyncRule SNMP[] = {{Prefix, "/sys/snmpd/"}, {Equal, "/sys/snmptrap/status"}};
constexpr SyncRule PING_CONTROL[] = {{Equal, "/sys/pingctl"}};
constexpr SyncRule DHCP[] = {{Prefix, "/lan/dhcp/"}};
constexpr SyncRule LOGIN[] = {{Equal, "/sys/user:1/password"}, {Equal, "/sys/user:1/name"}};

constexpr SyncItem ITEMS[SYNC_ITEM_COUNT] = {
    {"ssid", "/aparray/sync/ssid", SSID},
    {"ssidhidden", "/aparray/sync/ssidhidden", SSID_HIDDEN},
    {"autochannel", "/aparray/sync/autochannel", AUTO_CHANNEL},
    {"channelwidth", "/aparray/sync/channelwidth", CHANNEL_WIDTH},
    {"security", "/aparray/sync/security", SECURITY},
    {"fixedrate", "/aparray/sync/fixedrate", FIXED_RATE},
    {"beaconinterval", "/aparray/sync/beaconinterval", BEACON_INTERVAL},
    {"dtim", "/aparray/sync/dtim", DTIM},
    {"txpower", "/aparray/sync/txpower", TX_POWER},
    {"wmm", "/aparray/sync/wmm", WMM},
    {"acktimeout", "/aparray/sync/acktimeout", ACK_TIMEOUT},
    {"shortgi", "/aparray/sync/shortgi", SHORT_GI},
    {"igmpsnoop", "/aparray/sync/igmpsnoop", IGMP_SNOOP},
    {"connectionlimit", "/aparray/sync/connectionlimit", CONNECTION_LIMIT},
    {"linkintegrity", "/aparray/sync/linkintegrity", LINK_INTEGRITY},
    {"acl", "/aparray/sync/acl", ACL},
    {"multissid", "/aparray/sync/multi/ssid", MULTI_SSID},
    {"multissid_hidden", "/aparray/sync/multi/ssid_hidden", MULTI_SSID_HIDDEN},
    {"multisecurity", "/aparray/sync/multi/security", MULTI_SECURITY},
    {"multiwmm", "/aparray/sync/multi/wmm", MULTI_WMM},
    {"qos", "/aparray/sync/qos", QOS},
    {"vlan", "/aparray/sync/vlan", VLAN},
    {"schedule", "/aparray/sync/schedule", SCHEDULE},
    {"time", "/aparray/sync/time", TIME},
    {"log", "/aparray/sync/log", LOG},
    {"adminlimit", "/aparray/sync/adminlimit", ADMIN_LIMIT},
    {"system", "/aparray/sync/system", SYSTEM},
    {"consoleprotocol", "/aparray/sync/consoleprotocol", CONSOLE_PROTOCOL},
    {"snmp", "/aparray/sync/snmp", SNMP},
    {"pingctl", "/aparray/sync/pingctl", PING_CONTROL},
    {"dhcp", "/aparray/sync/dhcp", DHCP},
    {"login", "/aparray/sync/login", LOGIN},
};

bool rule_holds(const SyncRule &rule, std::string_view path) {
    const std::string_view text = rule.text;
    switch (rule.kind) {
    case Equal:
        return path == text;
    case Prefix:
        return path.starts_with(text);
    case Contains:
        return path.find(text) != std::string_view::npos;
    case Multi:
        return path.starts_with(MULTI_SSID_NODES) && path.find(text) != std::string_view::npos;
    }
    return false;
}

} // namespace

std::span<const SyncItem, SYNC_ITEM_COUNT> sync_items() {
    return ITEMS;
}

bool sync_item_covers(const SyncItem &item, const char *path) {
    return std::any_of(item.rules.begin(), item.rules.end(),
                       [path](const SyncRule &rule) { return rule_holds(rule, path); });
}

void note_array_write(const char *path) {
    for (const SyncItem &item : ITEMS) {
        ShortValue<127> flag;
        cfg_get(flag, "%s", item.node);
        if (flag.number() == 1 && sync_item_covers(item, path))
            array_cfg_dirty = 1;
    }
}
