#include "config/array_sync.h"

#include "config/node_access.h"

#include <algorithm>
#include <string_view>

std::uint32_t array_cfg_dirty = 0;

namespace {

enum class SyncRuleKind : std::uint8_t {
    Equal,    // the path is the text
    Prefix,   // the path begins with the text
    Contains, // the text occurs in the path
    Multi,    // the path is below interface 1's multi-SSID slots and contains the text
};

// A write to a path of this kind changes the item.
struct SyncRule {
    std::uint8_t item; // its index in SYNC_ITEMS
    SyncRuleKind kind;
    char text[38];
};

using enum SyncRuleKind;

// The index of an item; an unknown word does not compile.
consteval std::uint8_t item(std::string_view word) {
    std::uint8_t index = 0;
    while (word != SYNC_ITEMS[index].word)
        ++index;
    return index;
}

// Only interface 1 is covered: writes to the 5 GHz radio never mark the configuration.
constexpr SyncRule SYNC_RULES[] = {
    {item("ssid"), Equal, "/wlan/inf:1/ssid"},
    {item("ssidhidden"), Equal, "/wlan/inf:1/ssidhidden"},
    {item("autochannel"), Equal, "/wlan/inf:1/autochannel"},
    {item("channelwidth"), Equal, "/wlan/inf:1/cwmmode"},
    {item("security"), Equal, "/wlan/inf:1/authentication"},
    {item("security"), Equal, "/wlan/inf:1/defkey"},
    {item("security"), Contains, "/wlan/inf:1/wepkey"},
    {item("security"), Contains, "/wlan/inf:1/wpa"},
    {item("fixedrate"), Equal, "/wlan/inf:1/fixedrate"},
    {item("beaconinterval"), Equal, "/wlan/inf:1/beaconinterval"},
    {item("dtim"), Equal, "/wlan/inf:1/dtim"},
    {item("txpower"), Equal, "/wlan/inf:1/txpower"},
    // Never matches, since paths are expanded. Deliberate.
    {item("wmm"), Equal, "/wlan/inf:%d/wmm/enable"},
    {item("acktimeout"), Equal, "/wlan/inf:1/acktimeout_a"},
    {item("acktimeout"), Equal, "/wlan/inf:1/acktimeout_g"},
    {item("shortgi"), Equal, "/wlan/inf:1/shortgi"},
    {item("igmpsnoop"), Equal, "/wlan/inf:1/igmpsnoop"},
    {item("connectionlimit"), Equal, "/wlan/inf:1/assoc_limit/enable"},
    {item("linkintegrity"), Equal, "/wlan/inf:1/ethlink"},
    {item("acl"), Equal, "/wlan/inf:1/acl/mode"},
    {item("acl"), Prefix, "/wlan/inf:1/acl/mac"},
    {item("acl"), Equal, "/wlan/inf:1/multi/index:1/w_partition"},
    {item("acl"), Equal, "/wlan/inf:1/multi/index:2/w_partition"},
    {item("acl"), Equal, "/wlan/inf:1/multi/index:3/w_partition"},
    {item("acl"), Equal, "/wlan/inf:1/multi/index:4/w_partition"},
    {item("acl"), Equal, "/wlan/inf:1/multi/index:5/w_partition"},
    {item("acl"), Equal, "/wlan/inf:1/multi/index:6/w_partition"},
    {item("acl"), Equal, "/wlan/inf:1/multi/index:7/w_partition"},
    // Also matches "ssid_hidden" nodes.
    {item("multissid"), Multi, "ssid"},
    {item("multissid_hidden"), Multi, "ssid_hidden"},
    {item("multisecurity"), Multi, "auth"},
    {item("multisecurity"), Multi, "cipher"},
    {item("multisecurity"), Multi, "wep_key_index"},
    {item("multisecurity"), Multi, "passphrase"},
    {item("multisecurity"), Multi, "interval"},
    // These also match the backup servers' nodes, such as "b_radius_server".
    {item("multisecurity"), Multi, "radius_server"},
    {item("multisecurity"), Multi, "radius_port"},
    {item("multisecurity"), Multi, "radius_secret"},
    {item("multisecurity"), Multi, "acctstate"},
    {item("multisecurity"), Multi, "acctserver"},
    {item("multisecurity"), Multi, "acctport"},
    {item("multisecurity"), Multi, "acctsecret"},
    {item("multiwmm"), Multi, "wmm/enable"},
    {item("qos"), Prefix, "/qos/"},
    {item("qos"), Equal, "/lan/ethernet/updownlink"},
    {item("qos"), Equal, "/wlan/inf:1/updownlink"},
    {item("qos"), Prefix, "/wlan/inf:1/multi/index"},
    {item("qos"), Prefix, "/wlan/inf:1/wds/list/index"},
    {item("qos"), Prefix, "/trafficctrl/"},
    {item("vlan"), Prefix, "/sys/group_vlan"},
    {item("vlan"), Equal, "/sys/vlan_state"},
    {item("vlan"), Equal, "/sys/vlan_mode"},
    {item("vlan"), Equal, "/sys/vlan_id"},
    {item("vlan"), Equal, "/lan/ethernet/vlan_id"},
    {item("vlan"), Equal, "/sys/auto_set_pvid"},
    {item("vlan"), Equal, "/wlan/inf:1/vlan_id"},
    {item("schedule"), Prefix, "/schedule/"},
    {item("time"), Prefix, "/time/"},
    {item("log"), Prefix, "/sys/log/"},
    {item("log"), Prefix, "/security/log/"},
    {item("adminlimit"), Prefix, "/sys/adminlimit/"},
    {item("system"), Equal, "/sys/systemName"},
    {item("system"), Equal, "/sys/systemLocation"},
    {item("consoleprotocol"), Equal, "/sys/consoleprotocol/protocol"},
    {item("consoleprotocol"), Equal, "/sys/consoleprotocol/timeout"},
    {item("snmp"), Prefix, "/sys/snmpd/"},
    {item("snmp"), Equal, "/sys/snmptrap/status"},
    {item("pingctl"), Equal, "/sys/pingctl"},
    {item("dhcp"), Prefix, "/lan/dhcp/"},
    {item("login"), Equal, "/sys/user:1/password"},
    {item("login"), Equal, "/sys/user:1/name"},
};

constexpr std::string_view MULTI_SSID_NODES = "/wlan/inf:1/multi/";

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

bool sync_item_covers(const SyncItem &item, const char *path) {
    return std::any_of(std::begin(SYNC_RULES), std::end(SYNC_RULES), [&](const SyncRule &rule) {
        return &SYNC_ITEMS[rule.item] == &item && rule_holds(rule, path);
    });
}

void note_array_write(const char *path) {
    for (const SyncItem &item : SYNC_ITEMS) {
        ShortValue<128> flag;
        cfg_get_plain(flag, item.node);
        if (flag.number() == 1 && sync_item_covers(item, path))
            array_cfg_dirty = 1;
    }
}
