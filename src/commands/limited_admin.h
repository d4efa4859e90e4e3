// Limited administration: managing the device only from one VLAN, from up to four address pools,
// or both.
#pragma once

#include "commands/shared/rows.h"
#include "shell/dispatch.h"

// Holds the type: 0, or what administration is limited by.
inline constexpr char ADMIN_LIMIT_TYPE[] = "/sys/adminlimit/status";
inline constexpr int LIMITED_BY_VLAN = 1;
inline constexpr int LIMITED_BY_ADDRESS = 2;
inline constexpr int LIMITED_BY_BOTH = LIMITED_BY_VLAN | LIMITED_BY_ADDRESS;

// True when the type, as read from its node, is valid and includes the limit.
bool includes_limit(int type, int limit);

// The setters return 0, also after refusing the words; or -1 after a failed read.

// `set ladtype <0..3>`. A type that includes address pools needs at least one pool; a type that
// includes the VLAN switches VLAN operation off.
CliHandler set_admin_limit_type;

// `set ladvid <1..4094>`.
CliHandler set_admin_limit_vid;

// `set ladippool-add <index> <start> <end>`: both edges are stored as typed; an index outside 1..4
// is ignored silently. Removes the pools from the type when none is left.
CliHandler add_admin_pool;

// `set ladippool-del <1..4>`.
CliHandler delete_admin_pool;

// `get ladvid` and `get ladippool <1..4>`. Return 0; or -1 after "Error: fail to allocate memery"
// for a failed read.
CliHandler get_admin_limit_vid;
CliHandler get_admin_pool;

inline constexpr auto limited_admin_set_rows = command_rows({
    {"ladtype", "Limited Administration Type", set_admin_limit_type},
    {"ladvid", "Vlan ID which can control device", set_admin_limit_vid},
    {"ladippool-add", "Start IP of Limited Administration IP pool", add_admin_pool},
    {"ladippool-del", "del IP of Limited Administration IP pool", delete_admin_pool},
});

inline constexpr auto limited_admin_get_rows = command_rows({
    {"ladtype", "Limited Administration Type",
     show_numbered_line<ADMIN_LIMIT_TYPE, "Limited Administration Disabled\n",
                        "Administration with specific VLAN ID\n",
                        "Administration with Limited IP address\n",
                        "Administration with Limited IP address and VLAN ID\n">},
    {"ladvid", "Vlan ID which can control device", get_admin_limit_vid},
    {"ladippool", "Start IP of Limited Administration IP pool", get_admin_pool},
});
