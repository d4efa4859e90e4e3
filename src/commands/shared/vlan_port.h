// The ports of the bridge, and the words for ports and VLANs.
#pragma once

#include "commands/shared/slot.h"

inline constexpr int FIRST_VLAN_ID = 1;
inline constexpr int LAST_VLAN_ID = 4094;

inline constexpr bool is_vlan_id(int number) {
    return number >= FIRST_VLAN_ID && number <= LAST_VLAN_ID;
}

inline constexpr ValueRule VLAN_ID_RULE{
    .kind = ValueKind::Number,
    .low = FIRST_VLAN_ID,
    .high = LAST_VLAN_ID,
    .message = "Please specify the correct VLAN ID (1~4094).\n",
};
// Has no full stop, unlike the rule's message. Deliberate.
inline constexpr char WRONG_VLAN_ID[] = "Please specify the correct VLAN ID (1~4094)\n";
inline constexpr char MISSING_VLAN_ID[] = "Wrong input parameters. Please input VLAN ID!\n";
inline constexpr char VLAN_ID_ERROR[] = "ERROR: Unable to set VLAN ID.\n";

// A port in the group table: the node "/KIND:NUMBER/egress" of each entry.
struct VlanPort {
    char kind[4];
    int number;
};

// Wireless ports that the administrator names by an index from 1.
struct IndexedPorts {
    IndexRefusal set_refusal; // of setters, which take a VLAN ID and the index
    IndexRefusal show_refusal;
    int last_index;
    int offset;      // of the port's number from the index on the first band,
    int band_offset; // and from there on the second

    [[nodiscard]] VlanPort port(const CliContext &cli, int index) const {
        return {"ath", index + offset + band_offset * cli.current_band};
    }
};

inline constexpr IndexedPorts MULTI_SSID_PORTS{
    .set_refusal =
        {.wrong_count =
             "Wrong input parameters. Please input VLAN ID and Multi-SSID index (1-3).\n",
         .out_of_range = SLOT_NOT_CORRECT,
         .error_line = VLAN_ID_ERROR},
    .show_refusal = SLOT_REFUSAL,
    .last_index = SLOT_COUNT,
    .offset = 1,
    .band_offset = 16,
};

// On the second band these are the ports 17 to 20, of the primary SSID and the slots, not of WDS
// links. Deliberate.
inline constexpr IndexedPorts WDS_PORTS{
    .set_refusal = {.wrong_count =
                        "Wrong input parameters. Please input VLAN ID and WDS index (1-4).\n",
                    .out_of_range = "Please input correct WDS index: 1-4\n",
                    .error_line = VLAN_ID_ERROR},
    .show_refusal = {.wrong_count =
                         "Wrong input parameters. Please specify the correct WDS index (1-4).\n",
                     .out_of_range = "Please specify the correct WDS index (1-4).\n"},
    .last_index = 4,
    .offset = 8,
    .band_offset = 8,
};

// Takes the next word as a VLAN ID. Returns 0 after the refusal, which ends with VLAN_ID_ERROR.
int take_vlan_id(CliContext &cli);

// Takes the two words of a line as a VLAN ID and an index. No index after the refusal.
LineIndex take_vlan_id_and_index(CliContext &cli, const IndexedPorts &ports, int &vid);
