// Limited administration: only one VLAN, up to four address pools, or both may manage the device.
#pragma once

#include "commands/shared/rows.h"
#include "shell/dispatch.h"

// Holds the type: 0, or the limits as bits.
inline constexpr char ADMIN_LIMIT_TYPE[] = "/sys/adminlimit/status";
inline constexpr int LIMITED_BY_VLAN = 1;
inline constexpr int LIMITED_BY_ADDRESS = 2;
inline constexpr int LIMITED_BY_BOTH = LIMITED_BY_VLAN | LIMITED_BY_ADDRESS;

// True when the type, as read from its node, is valid and includes the limit.
bool includes_limit(int type, int limit);

// The setters return CLI_DONE after a message about wrong words, too.

// Word TYPE, 0..3. A type with address pools needs at least one pool; a type with the VLAN switches
// VLAN operation off.
CliHandler set_admin_limit_type;

// Word VID, 1..4094.
CliHandler set_admin_limit_vid;

// Words POOL START END: both addresses are stored as typed; a POOL outside 1..4 is silently
// ignored. Removes the pools from the type when all are empty.
CliHandler add_admin_pool;

// Word POOL, 1..4.
CliHandler delete_admin_pool;

// A failed read is refused with FAIL_TO_ALLOCATE. The pool's takes a word POOL, 1..4.
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
