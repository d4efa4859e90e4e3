// The access control list of a radio's clients, by MAC address, and the classification of access
// points nearby.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

inline constexpr char ACL_ADDRESSES[] = "/wlan/inf:%d/acl/mac:%d";
inline constexpr int ACL_TABLE_ROWS = 512;

const char *acl_mode_name(int mode);

// Word MAC, stored as typed.
CliHandler add_acl_address;

// Word MAC, which need not be well-formed.
CliHandler delete_acl_address;

// Prints the access points that the administrator classified.
CliHandler get_rogue_aps;

// Words INDEX TYPE MAC: writes a classified access point. Only the MAC's length is checked.
CliHandler set_rogue_ap;

// Scans for access points and prints what was found.
CliHandler get_intrusion;

// Words INDEX TYPE, TYPE 0..3: classifies a scan result and saves the configuration.
CliHandler set_intrusion;

inline constinit auto acl_rows = command_table({
    {"disable", "acl disable", write_fixed<"/wlan/inf:%d/acl/mode", "0", APPLY_WLAN>},
    {"accept", "acl accept", write_fixed<"/wlan/inf:%d/acl/mode", "1", APPLY_WLAN>},
    {"reject", "acl reject", write_fixed<"/wlan/inf:%d/acl/mode", "2", APPLY_WLAN>},
});

inline constexpr auto acl_rogue_set_rows = command_rows({
    family("acl", "Set ACL", acl_rows),
    {"macaddradd", "Add MAC Addr <macaddradd macaddress>  ", add_acl_address},
    {"macaddrdel", "DEL MAC Addr <macaddrdel macaddress>", delete_acl_address},
    {"rogue_set_type_mac", "set rogue ap index type and mac < type   macaddradd macaddress>  ",
     set_rogue_ap},
    {"intrusion", "Set intrusion", set_intrusion},
});

inline constexpr auto acl_rogue_get_rows = command_rows({
    {"acl", "Display ACL", show_name<"/wlan/inf:%d/acl/mode", "aclmode:%s\n", acl_mode_name>},
    {"macaddrlist", "Display MAC Address List",
     show_list<ACL_ADDRESSES, "macaddr:%d-->%s\n", MEMORY_ERROR>},
    {"acl-table", "Display macfilter table",
     show_list<"/wlan/inf:1/acl/mac:%d", "%d     %s\n", MEMORY_ERROR, nullptr, ACL_TABLE_ROWS>},
    {"rogue_ap", "Display Rogue AP List", get_rogue_aps},
    {"intrusion", "Display intrusion", get_intrusion},
});
