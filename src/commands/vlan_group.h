// The group VID table: up to 18 VLANs, each with its name and the egress of every port.
#pragma once

#include "commands/shared/vlan_port.h"
#include "config/value_buffer.h"
#include "shell/command.h"

#include <cstdint>
#include <optional>

inline constexpr int GROUP_ENTRIES = 18;

// A port's place in a VLAN, as its egress node holds it.
enum Egress : int {
    EGRESS_NONE = 0,
    EGRESS_TAG = 1,
    EGRESS_UNTAG = 2,
};

// The VLAN ID of an entry, 0 when the entry is free; nothing when it could not be read.
std::optional<int> group_vid(int entry);

// Reads the VLAN ID of an entry as it stands, as cfg_get does.
[[nodiscard]] int read_group_vid(ReadTarget vid, int entry);

// What a port is in the VLAN of an entry; nothing when that could not be read.
std::optional<int> group_egress(int entry, const VlanPort &port);

// The ports that have commands of their own.
enum class GroupPort : std::uint8_t {
    Primary, // the current band's, as the next two
    MultiSsid,
    Wds,
    Ethernet,
    System,
};

// `<vid> [<index>]`: makes a port a member of a VLAN, which takes the entry behind the last used
// one if it has none. Returns 0; or -1 after saying why not.
int set_group_member(CliContext &cli, GroupPort port, Egress egress);

// `[<index>]`: lists all VLANs with what the port is in them. Returns 0; or -1 after saying why
// not.
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

// Words NAME VID: names a VLAN in at most 32 characters. Returns 0, also after saying that there is
// no such VLAN; or -1 after saying what is wrong with the words.
CliHandler set_group_name;

// Word VID: deletes the entries of a VLAN, if there are any, and shows their nodes. Returns 0; or
// -1 after saying why not.
CliHandler delete_group;
