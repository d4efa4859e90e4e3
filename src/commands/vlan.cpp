#include "commands/vlan.h"

#include "commands/limited_admin.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <algorithm>
#include <array>

// The paths and formats come from template arguments and tables of this program's own.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

namespace {

constexpr int DEFAULT_PVID = 1;

// The VLAN IDs of the entries that the table counts, 0 for free ones. Read once, since every port
// is looked up in all of them.
using GroupVids = std::array<int, LAST_GROUP_ENTRY>;

GroupVids read_group_vids() {
    GroupVids vids{};
    const int count = std::clamp(cfg_number("/sys/group_vlan/index#"), 0, LAST_GROUP_ENTRY);
    for (int entry = 1; entry <= count; ++entry)
        vids[static_cast<std::size_t>(entry - 1)] = group_vid(entry);
    return vids;
}

int pvid_of(const VlanPort &port, const GroupVids &vids) {
    for (int entry = LAST_GROUP_ENTRY; entry >= 1; --entry) {
        const int vid = vids[static_cast<std::size_t>(entry - 1)];
        if (vid != 0 && group_egress(entry, port) == EGRESS_UNTAG)
            return vid;
    }
    return DEFAULT_PVID;
}

int set_indexed_pvid(CliContext &cli, const IndexedPorts &ports) {
    int vid = 0;
    const char *index = nullptr;
    if (!take_vlan_id_and_index(cli, ports, vid, index))
        return CLI_REFUSED;
    // The index goes into the path as typed.
    cfg_set_number(vid, "/wlan/inf:%d/%s/index:%s/vlan_id", interface_number(cli), ports.list,
                   index);
    pending_apply |= APPLY_WLAN;
    return CLI_DONE;
}

// `format` is for the index and the PVID.
int show_indexed_pvid(CliContext &cli, const IndexedPorts &ports, const char *format) {
    int index = 0;
    if (!take_index(cli, ports, ports.refusals, index))
        return CLI_REFUSED;
    cli_printf(
        format, index,
        cfg_number("/wlan/inf:%d/%s/index:%d/vlan_id", interface_number(cli), ports.list, index));
    return CLI_DONE;
}

} // namespace

int enable_vlan(CliContext &, const char *, CliCommand *) {
    cfg_set("1", "/sys/vlan_state");
    pending_apply |= APPLY_WLAN;
    const int type = cfg_number(ADMIN_LIMIT_TYPE);
    if (!includes_limit(type, LIMITED_BY_VLAN))
        return CLI_DONE;
    cli_printf("Because VLAN is enable, limit vlan need to disable.\n");
    cfg_set_number(type & LIMITED_BY_ADDRESS, ADMIN_LIMIT_TYPE);
    pending_apply |= APPLY_WAN;
    return CLI_DONE;
}

int enable_auto_pvid(CliContext &, const char *, CliCommand *) {
    cfg_set("1", "/sys/auto_set_pvid");
    const GroupVids vids = read_group_vids();
    for (const VlanPortRun &run : VLAN_PORTS) {
        for (int step = 0; step < run.count; ++step) {
            VlanPort port = run.first;
            port.number += step;
            cfg_set_number(pvid_of(port, vids), run.pvid_path, step + 1);
        }
    }
    pending_apply |= APPLY_WLAN;
    return CLI_DONE;
}

const char *vlan_mode_name(int number) {
    return number == 1 ? "dynamic" : "static";
}

int write_pvid(CliContext &cli, const char *path) {
    const char *vid = take_vlan_word(cli);
    if (vid == nullptr)
        return CLI_REFUSED;
    cfg_set(vid, path, interface_number(cli));
    pending_apply |= APPLY_WLAN;
    return CLI_DONE;
}

int show_node_number(const CliContext &cli, const char *path, const char *format) {
    cli_printf(format, cfg_number(path, interface_number(cli)));
    return CLI_DONE;
}

int set_multi_pvid(CliContext &cli, const char *, CliCommand *) {
    return set_indexed_pvid(cli, MULTI_SSID_PORTS);
}

int set_wds_pvid(CliContext &cli, const char *, CliCommand *) {
    return set_indexed_pvid(cli, WDS_PORTS);
}

int get_multi_pvid(CliContext &cli, const char *, CliCommand *) {
    return show_indexed_pvid(cli, MULTI_SSID_PORTS, "VLAN ID of Multi-SSID (index %d) is %d\n");
}

int get_wds_pvid(CliContext &cli, const char *, CliCommand *) {
    return show_indexed_pvid(cli, WDS_PORTS, "VLAN ID of WDS (index %d) is %d\n");
}
