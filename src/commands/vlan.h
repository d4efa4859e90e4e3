// VLANs of the bridge: the switches, and the VLAN IDs of its ports.
#pragma once

#include "commands/shared/rows.h"
#include "commands/shared/slot.h"
#include "commands/vlan_group.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// Switches VLAN operation on and removes the VLAN limit from limited administration.
CliHandler enable_vlan;

// Makes the PVIDs follow the group table and sets all of them: a port's PVID is the VLAN ID of the
// last entry in which the port is untagged, copied as stored, or else 1.
CliHandler enable_auto_pvid;

// "dynamic" for 1, else "static".
const char *vlan_mode_name(int number);

template <FixedText Path>
inline constexpr CliHandler *set_pvid =
    write_in_range<Path, FIRST_VLAN_ID, LAST_VLAN_ID, APPLY_WLAN, WRONG_VLAN_ID, CLI_REFUSED,
                   MISSING_VLAN_ID>;

inline constexpr SlotSetter SLOT_PVID{
    .leaf = "/vlan_id",
    .rule = VLAN_ID_RULE,
    .value_name = "VLAN ID",
    .error_line = VLAN_ID_ERROR,
};
inline constexpr SlotDisplay SHOWN_PVID{
    .leaf = "/vlan_id",
    .subject = "VLAN ID of Multi-SSID",
    .kind = SlotValue::Number,
    .refused = CLI_REFUSED,
};

// PVIDs of the current band's WDS links: words VID LINK, or LINK.
CliHandler set_wds_pvid;
CliHandler get_wds_pvid;

inline constinit auto vlan_state_rows = command_table({
    {"enable", "enable VLAN", enable_vlan},
    {"disable", "disable VLAN", write_fixed<"/sys/vlan_state", "0", APPLY_WLAN>},
});

inline constinit auto vlan_mode_rows = command_table({
    {"dynamic", "dynamic VLAN", write_fixed<"/sys/vlan_mode", "1", APPLY_WLAN>},
    {"static", "static VLAN", write_fixed<"/sys/vlan_mode", "0", APPLY_WLAN>},
});

inline constinit auto auto_pvid_rows = command_table({
    {"enable", "enable autosetpvid", enable_auto_pvid},
    {"disable", "disable autosetpvid", write_fixed<"/sys/auto_set_pvid", "0", APPLY_WLAN>},
});

inline constexpr auto vlan_set_rows = command_rows({
    family("vlanstate", "Set VLAN state", vlan_state_rows),
    family("vlanmode", "Set VLAN mode", vlan_mode_rows),
    family("autosetpvid", "Auto setting pvid by group VID", auto_pvid_rows),
    {"pvid_primary", "Set primary SSID PVID", set_pvid<"/wlan/inf:%d/vlan_id">},
    {"pvid_eth", "Set ethernet(LAN1) PVID", set_pvid<"/lan/ethernet/vlan_id">},
    {"pvid_sys", "Set system PVID", set_pvid<"/sys/vlan_id">},
    {"multi-pvid", "Set PVID of Multi-SSID[index]", set_slot<SLOT_PVID>},
    {"wds-pvid", "Set PVID of WDS[index]", set_wds_pvid},
    family("groupvid_primary", "Set wlan port member of group VID",
           vlan_member_rows<GroupPort::Primary>),
    family("groupvid_eth", "Set LAN port member of group VID",
           vlan_member_rows<GroupPort::Ethernet>),
    family("groupvid_sys", "Set system port member of group VID",
           vlan_member_rows<GroupPort::System>),
    family("multi-groupvid", "Set Group VID of Multi-SSID[index]",
           vlan_member_rows<GroupPort::MultiSsid>),
    family("wds-groupvid", "Set group VID of WDS[index]", vlan_member_rows<GroupPort::Wds>),
    // The help text is another command's. Deliberate.
    {"groupvidname", "Set Service Set ID", set_group_name},
    {"groupviddel", "Delete port member of group VID ", delete_group},
});

inline constexpr auto vlan_get_rows = command_rows({
    {"vlanstate", "Display VLAN state",
     show_switch<"/sys/vlan_state", "VLAN==%s\n", CANT_ALLOC_MEMORY>},
    {"vlanmode", "Display VLAN mode",
     show_name<"/sys/vlan_mode", "VLAN mode==%s\n", vlan_mode_name, CANT_ALLOC_MEMORY>},
    {"autosetpvid", "Display auto setting pvid by group VID",
     show_switch<"/sys/auto_set_pvid", "auto-set-pvid==%s\n", CANT_ALLOC_MEMORY>},
    {"pvid_primary", "Display primary SSID PVID",
     show_number<"/wlan/inf:%d/vlan_id", "primary SSID PVID==%d\n">},
    {"pvid_eth", "Display ethernet PVID",
     show_number<"/lan/ethernet/vlan_id", "Ethernet PVID==%d\n">},
    {"pvid_sys", "Display system PVID", show_number<"/sys/vlan_id", "system PVID==%d\n">},
    {"multi-pvid", "Display PVID of Multi-SSID[index]", show_slot<SHOWN_PVID>},
    {"wds-pvid", "Get PVID of WDS[index]", get_wds_pvid},
    {"groupvid_primary", "Display wlan port member of group VID",
     show_vlan_members<GroupPort::Primary>},
    {"groupvid_eth", "Display LAN port member of group VID",
     show_vlan_members<GroupPort::Ethernet>},
    {"groupvid_sys", "Display System port member of group VID",
     show_vlan_members<GroupPort::System>},
    {"multi-groupvid", "Display Group VID of Multi-SSID[index]",
     show_vlan_members<GroupPort::MultiSsid>},
    {"wds-groupvid", "Get group VID of WDS[index]", show_vlan_members<GroupPort::Wds>},
});
