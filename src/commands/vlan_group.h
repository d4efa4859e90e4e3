// The group VID table: up to 18 VLANs, each with its name and the egress of every port.
#pragma once

#include "commands/shared/vlan_port.h"
#include "config/value_buffer.h"
#include "shell/command.h"

#include <cstdint>
#include <optional>

inline constexpr int GROUP_ENTRIES = 18;

// A port's membership of a VLAN, as its egress node holds it.
enum Egress : int {
    EGRESS_NONE = 0,
    EGRESS_TAG = 1,
    EGRESS_UNTAG = 2,
};

// The VLAN ID of an entry, 0 for a free one; nothing when it could not be read.
std::optional<int> group_vid(int entry);

// Reads the VLAN ID of an entry as stored, as cfg_get does.
[[nodiscard]] int read_group_vid(ReadTarget vid, int entry);

// A port's egress in an entry; nothing when it could not be read.
std::optional<int> group_egress(int entry, const VlanPort &port);

// The ports that have their own commands.
enum class GroupPort : std::uint8_t {
    Primary, // the current band's, as the next two
    MultiSsid,
    Wds,
    Ethernet,
    System,
};

// Words VID [INDEX]: sets a port's membership of a VLAN. A new VLAN takes the entry after the last
// used one. Returns as a handler does.
int set_group_member(CliContext &cli, GroupPort port, Egress egress);

// Words [INDEX]: lists all VLANs with the port's membership. Returns as a handler does.
int show_group_members(CliContext &cli, GroupPort port);

template <GroupPort Port, Egress Member>
int set_vlan_member(CliContext &cli, const char *, CliCommand *) {
    return set_group_member(cli, Port, Member);
}

template <GroupPort Port>
int show_vlan_members(CliContext &cli, const char *, CliCommand *) {
    return show_group_members(cli, Port);
}

template <GroupPort Port>
inline constinit auto vlan_member_rows = command_table({
    {"Tag", "Tag port", set_vlan_member<Port, EGRESS_TAG>},
    {"Untag", "Un-tag port", set_vlan_member<Port, EGRESS_UNTAG>},
    {"None", "not a member", set_vlan_member<Port, EGRESS_NONE>},
});

// Words NAME VID: names a VLAN, in at most 32 characters. An unknown VLAN is reported and returns
// CLI_DONE.
CliHandler set_group_name;

// Word VID: deletes all entries of a VLAN and prints their paths.
CliHandler delete_group;
