// The settings that an access-point array can keep in step, each with its flag.
#pragma once

#include <cstddef>
#include <iterator>

// The texts are stored in the table itself: pointers would be relocated at every start of a
// position-independent program, which makes their pages private memory.
struct SyncItem {
    char word[17]; // what the administrator calls it
    char node[32]; // its flag: 1 = synchronised
};

// In the order in which the flags are read.
inline constexpr SyncItem SYNC_ITEMS[] = {
    {"ssid", "/aparray/sync/ssid"},
    {"ssidhidden", "/aparray/sync/ssidhidden"},
    {"autochannel", "/aparray/sync/autochannel"},
    {"channelwidth", "/aparray/sync/channelwidth"},
    {"security", "/aparray/sync/security"},
    {"fixedrate", "/aparray/sync/fixedrate"},
    {"beaconinterval", "/aparray/sync/beaconinterval"},
    {"dtim", "/aparray/sync/dtim"},
    {"txpower", "/aparray/sync/txpower"},
    {"wmm", "/aparray/sync/wmm"},
    {"acktimeout", "/aparray/sync/acktimeout"},
    {"shortgi", "/aparray/sync/shortgi"},
    {"igmpsnoop", "/aparray/sync/igmpsnoop"},
    {"connectionlimit", "/aparray/sync/connectionlimit"},
    {"linkintegrity", "/aparray/sync/linkintegrity"},
    {"acl", "/aparray/sync/acl"},
    {"multissid", "/aparray/sync/multi/ssid"},
    {"multissid_hidden", "/aparray/sync/multi/ssid_hidden"},
    {"multisecurity", "/aparray/sync/multi/security"},
    {"multiwmm", "/aparray/sync/multi/wmm"},
    {"qos", "/aparray/sync/qos"},
    {"vlan", "/aparray/sync/vlan"},
    {"schedule", "/aparray/sync/schedule"},
    {"time", "/aparray/sync/time"},
    {"log", "/aparray/sync/log"},
    {"adminlimit", "/aparray/sync/adminlimit"},
    {"system", "/aparray/sync/system"},
    {"consoleprotocol", "/aparray/sync/consoleprotocol"},
    {"snmp", "/aparray/sync/snmp"},
    {"pingctl", "/aparray/sync/pingctl"},
    {"dhcp", "/aparray/sync/dhcp"},
    {"login", "/aparray/sync/login"},
};

inline constexpr std::size_t SYNC_ITEM_COUNT = std::size(SYNC_ITEMS);
