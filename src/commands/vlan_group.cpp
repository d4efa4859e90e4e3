#include "commands/vlan_group.h"

#include "commands/shared/numbered_list.h"
#include "commands/shared/rows.h"
#include "config/apply.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstring>

namespace {

constexpr std::size_t VLAN_NAME_LIMIT = 32;
constexpr char NAME_ERROR[] = "ERROR: Unable to set VID name.\n";
constexpr NumberedList ENTRY("/sys/group_vlan/index:%d");
constexpr char NAME[] = "/sys/group_vlan/index:%d/group_name";
constexpr char VID[] = "/sys/group_vlan/index:%d/group_vid";
constexpr char EGRESS[] = "/sys/group_vlan/index:%d/%s:%d/egress";

// Null for a port without an index.
const IndexedPorts *indexed_ports(GroupPort port) {
    if (port == GroupPort::MultiSsid)
        return &MULTI_SSID_PORTS;
    return port == GroupPort::Wds ? &WDS_PORTS : nullptr;
}

VlanPort single_port(const CliContext &cli, GroupPort port) {
    if (port == GroupPort::Ethernet)
        return {"eth", 1};
    if (port == GroupPort::System)
        return {"sys", 1};
    return {"ath", 1 + 16 * cli.current_band};
}

// The entry of a VLAN, else the one after the last used one, which may be past the end of the
// table; holes are not reused. Nothing when an entry could not be read.
std::optional<int> entry_for(int vid) {
    int last_used = 0;
    for (int entry = 1; entry <= GROUP_ENTRIES; ++entry) {
        const std::optional<int> used_by = group_vid(entry);
        if (!used_by)
            return std::nullopt;
        if (*used_by == vid)
            return entry;
        if (*used_by != 0)
            last_used = entry;
    }
    return last_used + 1;
}

int write_member(int entry, int vid, const VlanPort &port, Egress egress) {
    cfg_set_number(vid, VID, entry);
    cfg_set_number(egress, EGRESS, entry, port.kind, port.number);
    return mark_for_apply(APPLY_WLAN);
}

// Only these check for the end of the table. Deliberate.
int set_indexed_member(CliContext &cli, const IndexedPorts &ports, Egress egress) {
    int vid = 0;
    const LineIndex index = take_vlan_id_and_index(cli, ports, vid);
    if (!index)
        return CLI_REFUSED;
    const std::optional<int> entry = entry_for(vid);
    if (!entry)
        return CLI_REFUSED;
    if (*entry > GROUP_ENTRIES)
        return refuse("The entry of Group VID is full(%d). Can't add more group VID\n",
                      GROUP_ENTRIES);
    return write_member(*entry, vid, ports.port(cli, index.number), egress);
}

int set_single_member(CliContext &cli, const VlanPort &port, Egress egress) {
    if (arg_count(cli) != 1) {
        cli_printf("Wrong input parameters. Please input VLAN ID .\n");
        return refuse(VLAN_ID_ERROR);
    }
    const int vid = take_vlan_id(cli);
    if (vid == 0)
        return CLI_REFUSED;
    const std::optional<int> entry = entry_for(vid);
    return entry ? write_member(*entry, vid, port, egress) : CLI_REFUSED;
}

const char *egress_name(int egress) {
    if (egress == EGRESS_TAG)
        return "tag port";
    return egress == EGRESS_UNTAG ? "untag port" : "none";
}

int list_members(const VlanPort &port) {
    ValueBuffer name;
    if (!name)
        return refuse(CANT_ALLOC_MEMORY);
    for (int entry = 1; entry <= GROUP_ENTRIES; ++entry) {
        const int vid = group_vid(entry).value_or(0);
        if (vid == 0)
            continue;
        cfg_get(name, NAME, entry); // shown as empty when unreadable
        cli_printf("index:%02d, group vid:%4d, ", entry, vid);
        cli_printf("group name:%s, ", name.text());
        cli_printf("egress: %s\n", egress_name(group_egress(entry, port).value_or(EGRESS_NONE)));
    }
    return CLI_DONE;
}

} // namespace

std::optional<int> group_vid(int entry) {
    const std::optional<int> vid = cfg_read_number(VID, entry);
    return vid && !is_vlan_id(*vid) ? 0 : vid;
}

int read_group_vid(ReadTarget vid, int entry) {
    return cfg_get(vid, VID, entry);
}

std::optional<int> group_egress(int entry, const VlanPort &port) {
    return cfg_read_number(EGRESS, entry, port.kind, port.number);
}

int set_group_member(CliContext &cli, GroupPort port, Egress egress) {
    if (const IndexedPorts *ports = indexed_ports(port))
        return set_indexed_member(cli, *ports, egress);
    return set_single_member(cli, single_port(cli, port), egress);
}

int show_group_members(CliContext &cli, GroupPort port) {
    const IndexedPorts *ports = indexed_ports(port);
    if (ports == nullptr)
        return list_members(single_port(cli, port));
    const LineIndex index = take_index(cli, 1, ports->last_index, ports->show_refusal);
    return index ? list_members(ports->port(cli, index.number)) : CLI_REFUSED;
}

int set_group_name(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 2) {
        cli_printf("Wrong input parameters. Please input VID name and VLAN ID (%d-%d).\n",
                   FIRST_VLAN_ID, LAST_VLAN_ID);
        return refuse(NAME_ERROR);
    }
    const char *name = arg_next(cli);
    if (std::strlen(name) > VLAN_NAME_LIMIT)
        return refuse("Vid name's length should less 33\n");
    const int vid = decimal_value(arg_next(cli));
    if (!is_vlan_id(vid)) {
        cli_printf("Please input correct VLAN ID: %d-%d\n", FIRST_VLAN_ID, LAST_VLAN_ID);
        return refuse(NAME_ERROR);
    }
    for (int entry = 1; entry <= GROUP_ENTRIES; ++entry) {
        const std::optional<int> used_by = group_vid(entry);
        if (!used_by)
            return CLI_REFUSED;
        if (*used_by != vid)
            continue;
        cfg_set(name, NAME, entry);
        return mark_for_apply(APPLY_WLAN);
    }
    cli_printf("ERROR: No this VID.\n");
    return CLI_DONE; // no refusal. Deliberate.
}

int delete_group(CliContext &cli, const char *, CliCommand *) {
    const char *word = arg_next(cli);
    if (word == nullptr)
        return refuse(MISSING_VLAN_ID);
    const int vid = decimal_value(word);
    if (!is_vlan_id(vid))
        return refuse(WRONG_VLAN_ID);
    for (int entry = 1; entry <= GROUP_ENTRIES; ++entry) {
        const std::optional<int> used_by = group_vid(entry);
        if (!used_by)
            return CLI_REFUSED;
        if (*used_by != vid)
            continue;
        const ListPath path = ENTRY.path(entry);
        cfg_del(path.data());
        cli_printf(" delete:%s \n", path.data());
        mark_for_apply(APPLY_WLAN);
    }
    return CLI_DONE;
}
