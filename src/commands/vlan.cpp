#include "commands/vlan.h"

#include "commands/limited_admin.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <algorithm>
#include <cstring>

// The paths come from a table of this program's own.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

namespace {

constexpr char DEFAULT_PVID[] = "1";

// Above the table's size: limits the work when the database reports a wrong count.
constexpr int MAX_COUNTED_ENTRIES = 256;

// Consecutive ports and the node of their PVIDs, with "%d" for 1..count.
struct VlanPortRun {
    VlanPort first;
    int count;
    char pvid_path[36];
};

constexpr VlanPortRun VLAN_PORTS[] = {
    {{"sys", 1}, 1, "/sys/vlan_id"},
    {{"eth", 1}, 1, "/lan/ethernet/vlan_id"},
    {{"eth", 2}, 1, "/lan/ethernet:2/vlan_id"},
    {{"ath", 1}, 1, "/wlan/inf:1/vlan_id"},
    {{"ath", 2}, 7, "/wlan/inf:1/multi/index:%d/vlan_id"},
    {{"ath", 9}, 8, "/wlan/inf:1/wds/index:%d/vlan_id"},
    {{"ath", 17}, 1, "/wlan/inf:2/vlan_id"},
    {{"ath", 18}, 7, "/wlan/inf:2/multi/index:%d/vlan_id"},
    {{"ath", 25}, 8, "/wlan/inf:2/wds/index:%d/vlan_id"},
};

// The PVID of a WDS link, whose index goes into the path as typed.
constexpr char WDS_PVID[] = "/wlan/inf:%d/wds/index:%s/vlan_id";

// Reads a port's automatic PVID: the VLAN ID of the last of `entries` in which it is an untagged
// member, as stored, or else 1. False when a node could not be read.
bool read_auto_pvid(ValueBuffer &pvid, const VlanPort &port, int entries) {
    std::memcpy(pvid.data(), DEFAULT_PVID, sizeof DEFAULT_PVID);
    for (int entry = 1; entry <= entries; ++entry) {
        const std::optional<int> egress = group_egress(entry, port);
        if (!egress || (*egress == EGRESS_UNTAG && read_group_vid(pvid, entry) != 0))
            return false;
    }
    return true;
}

} // namespace

int enable_vlan(CliContext &, const char *, CliCommand *) {
    cfg_set("1", "/sys/vlan_state");
    mark_for_apply(APPLY_WLAN);
    const std::optional<int> type = cfg_read_number(ADMIN_LIMIT_TYPE);
    if (!type)
        return CLI_REFUSED;
    if (!includes_limit(*type, LIMITED_BY_VLAN))
        return CLI_DONE;
    cli_printf("Because VLAN is enable, limit vlan need to disable.\n");
    cfg_set_number(*type & LIMITED_BY_ADDRESS, ADMIN_LIMIT_TYPE);
    return mark_for_apply(APPLY_WAN);
}

int enable_auto_pvid(CliContext &, const char *, CliCommand *) {
    ValueBuffer pvid;
    if (!pvid)
        return refuse(CANT_ALLOC_MEMORY);
    cfg_set("1", "/sys/auto_set_pvid");
    mark_for_apply(APPLY_WLAN);
    const std::optional<int> counted = cfg_read_number("/sys/group_vlan/index#");
    if (!counted)
        return CLI_REFUSED;
    const int entries = std::min(*counted, MAX_COUNTED_ENTRIES);
    for (const VlanPortRun &run : VLAN_PORTS) {
        for (int step = 0; step < run.count; ++step) {
            VlanPort port = run.first;
            port.number += step;
            if (!read_auto_pvid(pvid, port, entries))
                return CLI_REFUSED;
            cfg_set(pvid.text(), run.pvid_path, step + 1);
        }
    }
    return CLI_DONE;
}

const char *vlan_mode_name(int number) {
    return number == 1 ? "dynamic" : "static";
}

int set_wds_pvid(CliContext &cli, const char *, CliCommand *) {
    int vid = 0;
    const LineIndex link = take_vlan_id_and_index(cli, WDS_PORTS, vid);
    if (!link)
        return CLI_REFUSED;
    cfg_set_number(vid, WDS_PVID, interface_number(cli), link.word);
    return mark_for_apply(APPLY_WLAN);
}

int get_wds_pvid(CliContext &cli, const char *, CliCommand *) {
    const LineIndex link = take_index(cli, 1, WDS_PORTS.last_index, WDS_PORTS.show_refusal);
    if (!link)
        return CLI_REFUSED;
    cli_printf("VLAN ID of WDS (index %d) is %d\n", link.number,
               cfg_number(WDS_PVID, interface_number(cli), link.word));
    return CLI_DONE;
}
