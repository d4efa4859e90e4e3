// The ports of the bridge, and how the administrator's words name ports and VLANs.
#pragma once

#include "shell/context.h"

inline constexpr int FIRST_VLAN_ID = 1;
inline constexpr int LAST_VLAN_ID = 4094;

inline constexpr bool is_vlan_id(int number) {
    return number >= FIRST_VLAN_ID && number <= LAST_VLAN_ID;
}

// A port as the group table knows it: the node "/KIND:NUMBER/egress" of each entry.
struct VlanPort {
    char kind[4];
    int number;
};

// The number of the first wireless port of the current band: 1 or 17.
inline int first_wireless_port(const CliContext &cli) {
    return 1 + 16 * cli.current_band;
}

// A run of ports that are alike, and the node of their PVIDs, with "%d" for 1..count.
struct VlanPortRun {
    VlanPort first;
    int count;
    char pvid_path[36];
};

inline constexpr VlanPortRun VLAN_PORTS[] = {
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

// Wireless ports that the administrator names by an index from 1.
struct IndexedPorts {
    const char *list;       // of the PVID nodes, below the interface
    const char *name;       // in displays and refusals,
    const char *other_name; // and where a setter refuses the index
    int last_index;
    int offset;      // of the port's number from the index on the first band ...
    int band_offset; // ... and from there on the second

    [[nodiscard]] VlanPort port(const CliContext &cli, int index) const {
        return {"ath", index + offset + band_offset * cli.current_band};
    }
};

inline constexpr IndexedPorts MULTI_SSID_PORTS = {"multi", "Multi-SSID", "multi_SSID", 3, 1, 16};

// On the second band these numbers begin with the primary SSID's, not where VLAN_PORTS has the
// WDS links. Deliberate.
inline constexpr IndexedPorts WDS_PORTS = {"wds", "WDS", "WDS", 4, 8, 8};

// Prints what is said when a VLAN cannot be set; returns CLI_REFUSED.
int refuse_vlan_id();

// Takes the next word as a VLAN ID. False after saying why not.
bool take_vlan_id(CliContext &cli, int &vid);

// Takes the first of the words as a VLAN ID and leaves it as typed. Null after saying why not.
const char *take_vlan_word(CliContext &cli);

// Takes the two words of a line as a VLAN ID and an index, which stays as typed. False after
// saying why not.
bool take_vlan_id_and_index(CliContext &cli, const IndexedPorts &ports, int &vid,
                            const char *&index);

// Takes the only word of a line as an index, which stays as typed. Null after saying why not.
const char *take_only_index(CliContext &cli, const IndexedPorts &ports);
